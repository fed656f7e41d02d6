#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "suggest/known_words.h"
#include "suggest/nearby_keys.h"
#include "suggest/unique_texts.h"

namespace mirvane {

/// Tries the edits of one unknown, lower-case word and collects those that are known words. Every
/// edit is made in one buffer, so that the many that are no words cost no allocation.
class EditCandidates {
 public:
  EditCandidates(std::string_view lowerWord, const KnownWords& knownWords);

  void tryNearbyKeys(const NearbyKeys& nearbyKeys);
  void tryInsertedLetters();
  void tryInsertedVowelPairs();

  [[nodiscard]] std::vector<std::string> take() { return found_.take(); }

 private:
  void keepIfKnown(const std::string& text);

  std::string word_;
  /// Where each character of the word starts, and the word's end (bytes).
  std::vector<std::size_t> starts_;
  const KnownWords& knownWords_;
  UniqueTexts found_;
};

}  // namespace mirvane
