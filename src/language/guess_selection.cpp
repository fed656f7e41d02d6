#include "language/guess_selection.h"

#include <algorithm>
#include <cstddef>

#include "language/typing_costs.h"

namespace mirvane {

namespace {

constexpr int asLikely = 4;  // costs this close together say nothing about which is meant
constexpr std::size_t mostGuesses = 5;

// What the ranking gives these: prefixWeight in suggest/suggestion_priority.cpp, the scores and the
// completion penalty in suggest/suggestion_features.cpp, the probability of a neighbouring key in
// resources/typing_parameters.json.
constexpr double commonBeginning = 0.35;
constexpr double clearSlip = 1.5;  // a swap, a double letter typed once, left-out vowels
constexpr double neighbouringKey = 0.35;
constexpr double onlyUnfinished = -0.45;  // the typed word is its beginning

std::string consonantsOf(std::string_view word) {
  std::string consonants(word);
  std::erase_if(consonants, [](char letter) {
    return std::string_view("aeiou").find(letter) != std::string_view::npos;
  });
  return consonants;
}

// What two words have in common, and where they part.
class Comparison {
 public:
  Comparison(std::string_view typed, std::string_view word)
      : typed_(typed),
        word_(word),
        shared_(static_cast<std::size_t>(std::ranges::mismatch(typed, word).in1 - typed.begin())) {}

  [[nodiscard]] double likeness() const {
    double likeness = commonBeginning * static_cast<double>(shared_) /
                      static_cast<double>(std::max(typed_.size(), word_.size()));
    if (isSwapped() || isMissingDouble() || isMissingVowels()) likeness += clearSlip;
    if (isOfNeighbouringKey()) likeness += neighbouringKey;
    if (shared_ == typed_.size() && word_.size() > shared_) likeness += onlyUnfinished;
    return likeness;
  }

 private:
  [[nodiscard]] bool isSwapped() const {
    return typed_.size() == word_.size() && shared_ + 1 < typed_.size() &&
           typed_[shared_] == word_[shared_ + 1] && typed_[shared_ + 1] == word_[shared_] &&
           typed_.substr(shared_ + 2) == word_.substr(shared_ + 2);
  }

  [[nodiscard]] bool isMissingDouble() const {
    return word_.size() == typed_.size() + 1 && shared_ > 0 &&
           word_[shared_] == word_[shared_ - 1] &&
           word_.substr(shared_ + 1) == typed_.substr(shared_);
  }

  [[nodiscard]] bool isMissingVowels() const {
    return word_.size() > typed_.size() && word_.size() <= typed_.size() + 2 &&
           consonantsOf(word_) == consonantsOf(typed_);
  }

  [[nodiscard]] bool isOfNeighbouringKey() const {
    return typed_.size() == word_.size() && shared_ < typed_.size() &&
           typed_.substr(shared_ + 1) == word_.substr(shared_ + 1) &&
           typing_cost::substitution(typed_[shared_], word_[shared_]) ==
               typing_cost::neighbouringKey;
  }

  std::string_view typed_, word_;
  std::size_t shared_;
};

}  // namespace

double likeness(std::string_view typed, std::string_view word) {
  return Comparison(typed, word).likeness();
}

std::vector<std::string> worthOffering(std::string_view typed, std::span<const Guess> nearest) {
  std::vector<std::string> offered;
  double lowest = 0;  // of the likenesses of the offered words
  for (const Guess& guess : nearest) {
    const double looks = likeness(typed, guess.word);
    const bool isAsLikely = guess.cost <= nearest.front().cost + asLikely;
    if (!offered.empty() && looks > lowest && !isAsLikely) continue;
    lowest = offered.empty() ? looks : std::min(lowest, looks);
    offered.push_back(guess.word);
    if (offered.size() == mostGuesses) break;
  }
  return offered;
}

}  // namespace mirvane
