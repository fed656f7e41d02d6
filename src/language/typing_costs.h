#pragma once

#include <cstddef>
#include <string_view>

namespace mirvane::typing_cost {

/// What it costs to explain one slip of the finger or the mind, in hundredths of an edit without
/// an excuse: the likelier the slip, the cheaper. Fitted to published misspellings and to simulated
/// motor errors. Letters are 'a' to 'z' and the apostrophe, in lower case.
using Cost = int;

constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz'";
constexpr std::size_t letterCount = letters.size();
constexpr std::size_t indexOf(char letter) {
  return letter == '\'' ? 26 : static_cast<std::size_t>(letter - 'a');
}

/// `typed` arrived instead of `meant`: cheap for neighbouring keys of the US QWERTY layout, for two
/// vowels and for letters that sound alike.
Cost substitution(char typed, char meant);

/// `typed` arrived without being meant, between `before` and `after` as typed ('\0' at an end).
Cost extraLetter(char typed, char before, char after);

/// Two neighbouring letters arrived in the wrong order.
constexpr Cost swap = 42;

/// Added to any slip on the first letter, which people get right more often than others.
constexpr Cost firstLetter = 8;

/// A neighbouring key was hit.
constexpr Cost neighbouringKey = 66;

/// No slip that gets rid of a letter costs less, unless the letter repeats the one before it.
constexpr Cost leastForForeignLetter = neighbouringKey;

/// A double letter was typed once.
constexpr Cost missedDouble = 34;

/// `meant` is missing behind the meant letter `before` ('\0' at the start).
constexpr Cost missingLetter(char meant, char before) {
  if (meant == before) return missedDouble;
  switch (meant) {
    case '\'':
      return 36;
    case 'a':
    case 'e':
    case 'i':
    case 'o':
    case 'u':
      return 68;
    default:
      return 64;
  }
}

/// What the rarity of a word costs, from its frequency as in WordTrie: a word ten times rarer is as
/// far away as this many hundredths, over 32 steps of frequency.
constexpr Cost rarity(unsigned char frequency) {
  return (255 - frequency) * 22 / 32;
}

}  // namespace mirvane::typing_cost
