#include "suggest/edit_candidates.h"

#include "suggest/vowels.h"
#include "text/characters.h"

namespace mirvane {
namespace {

constexpr std::string_view alphabet = "abcdefghijklmnopqrstuvwxyz";

}  // namespace

EditCandidates::EditCandidates(std::string_view lowerWord, const KnownWords& knownWords)
    : word_(lowerWord), knownWords_(knownWords) {
  for (const auto character : text::characters(word_)) {
    starts_.push_back(static_cast<std::size_t>(character.data() - word_.data()));
  }
  starts_.push_back(word_.size());
}

void EditCandidates::tryNearbyKeys(const NearbyKeys& nearbyKeys) {
  std::string edited = word_;
  for (std::size_t i = 0; i + 1 < starts_.size(); ++i) {
    const std::size_t start = starts_[i], length = starts_[i + 1] - start;
    const std::string_view typed = std::string_view(word_).substr(start, length);
    for (const auto& neighbor : nearbyKeys.nearbyKeyNeighbors(typed)) {
      edited.replace(start, length, neighbor);
      keepIfKnown(edited);
      edited.replace(start, neighbor.size(), typed);
    }
  }
}

void EditCandidates::tryInsertedLetters() {
  std::string edited;
  for (const std::size_t start : starts_) {
    edited = word_;
    edited.insert(start, 1, ' ');
    for (const char letter : alphabet) {
      edited[start] = letter;
      keepIfKnown(edited);
    }
  }
}

void EditCandidates::tryInsertedVowelPairs() {
  std::string edited;
  for (std::size_t i = 0; i < starts_.size(); ++i) {
    for (const char first : vowels) {
      // The second vowel goes behind the first one, or behind any later character.
      for (std::size_t j = i; j < starts_.size(); ++j) {
        edited = word_;
        edited.insert(starts_[j], 1, ' ');
        edited.insert(starts_[i], 1, first);
        for (const char second : vowels) {
          edited[starts_[j] + 1] = second;
          keepIfKnown(edited);
        }
      }
    }
  }
}

void EditCandidates::keepIfKnown(const std::string& text) {
  if (knownWords_.isKnownWord(text)) found_.add(text);
}

}  // namespace mirvane
