#include "language/guess_selection.h"

#include <algorithm>

namespace mirvane {

namespace {

constexpr int asLikely = 14;  // costs this close together say nothing about which is meant
constexpr std::size_t mostAsLikely = 3;
constexpr std::size_t mostGuesses = 5;

double sharedBeginning(std::string_view a, std::string_view b) {
  const auto shared = std::ranges::mismatch(a, b).in1 - a.begin();
  return static_cast<double>(shared) / static_cast<double>(std::max(a.size(), b.size()));
}

std::string consonantsOf(std::string_view word) {
  std::string consonants(word);
  std::erase_if(consonants, [](char letter) {
    return std::string_view("aeiou").find(letter) != std::string_view::npos;
  });
  return consonants;
}

bool addsOnlyVowels(std::string_view typed, std::string_view word) {
  return word.size() > typed.size() && consonantsOf(word) == consonantsOf(typed);
}

}  // namespace

std::vector<std::string> worthOffering(std::string_view typed, std::span<const Guess> nearest) {
  std::vector<std::string> offered;
  std::size_t likely = 0;
  for (const Guess& guess : nearest) {
    const Guess& first = nearest.front();
    if (guess.cost <= first.cost + asLikely && likely < mostAsLikely) {
      ++likely;
      offered.push_back(guess.word);
    } else if (offered.size() < mostGuesses && !addsOnlyVowels(typed, guess.word) &&
               sharedBeginning(typed, guess.word) < sharedBeginning(typed, first.word)) {
      offered.push_back(guess.word);
    }
  }
  return offered;
}

}  // namespace mirvane
