#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "language/word_trie.h"

namespace mirvane {

/// A word that may have been meant, and how far it is from what was typed.
struct Guess {
  std::string word;
  int cost;  // of the slips, in hundredths of an ordinary edit, and of the word's rarity
};

/// How far a search goes.
struct GuessLimits {
  std::size_t words;   // at most so many guesses
  int window;          // none that costs this much more than the best one
  int highestCost;     // none that costs more
  int costliestSlips;  // none whose slips alone cost more
};

/// The words nearest to a lower-case word of letters and apostrophes, cheapest first, words of
/// equal cost in the order of their letters. `backward` holds the same words spelled backward.
///
/// The slips of a word lie for their cheaper half in the first or in the second half of what was
/// typed. So one search reads forward and allows the first half of the letters only half the cost,
/// another reads backward and does the same from the end; few beginnings are that near (Mihov and
/// Schulz, Fast Approximate Search in Large Dictionaries, 2004).
std::vector<Guess> nearestWords(const WordTrie& forward, const WordTrie& backward,
                                std::string_view typed, const GuessLimits& limits);

}  // namespace mirvane
