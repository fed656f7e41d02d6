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

/// How far a search goes. Work is counted, not timed, so that answers repeat.
struct GuessLimits {
  std::size_t words;  // at most so many guesses
  int window;         // none that costs this much more than the best one
  int highestCost;    // none beyond this cost
  std::size_t steps;  // give up after so many looked-at states
};

/// The words nearest to a lower-case word of letters and apostrophes, cheapest first: a best-first
/// search (A*; Hart, Nilsson and Raphael 1968) over the trie, in which every state says how much of
/// the typed word is explained by how much of a listed word. What a branch still costs is at least
/// the rarity of its most frequent word.
std::vector<Guess> nearestWords(const WordTrie& trie, std::string_view typed,
                                const GuessLimits& limits);

}  // namespace mirvane
