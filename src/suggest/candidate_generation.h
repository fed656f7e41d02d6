#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/spell_checker.h"
#include "suggest/known_words.h"
#include "suggest/nearby_keys.h"
#include "suggest/repeat_variants.h"

namespace mirvane {

/// Finds the words that may have been meant by a typed word.
class CandidateGeneration {
 public:
  CandidateGeneration(const SpellChecker& spellChecker, const KnownWords& knownWords,
                      const NearbyKeys& nearbyKeys)
      : spellChecker_(spellChecker), knownWords_(knownWords), nearbyKeys_(nearbyKeys) {}

  /// Whether a word is of ASCII letters and apostrophes alone; no other has candidates.
  [[nodiscard]] static bool mayHaveCandidates(std::string_view word);

  /// Distinct known words that may be suggested, in order of discovery; the lower-cased word itself
  /// comes first when it is known. `variants` are the word's repeatCollapseVariants; those of more
  /// than 128 letters are no words and are not looked up.
  [[nodiscard]] std::vector<std::string> generateCandidates(
      std::string_view word, const std::vector<std::string>& variants) const;
  [[nodiscard]] std::vector<std::string> generateCandidates(std::string_view word) const {
    return generateCandidates(word, repeatCollapseVariants(word));
  }

  /// Completions, then guesses, each text once.
  [[nodiscard]] std::vector<std::string> spellCheckerSuggestions(std::string_view word) const;

  /// Known words that differ from an unknown one by a neighbouring key, by a missed letter (words
  /// of up to 8 characters) or by two left-out vowels (words of up to 6 without any).
  [[nodiscard]] std::vector<std::string> editCandidates(std::string_view word) const;

 private:
  [[nodiscard]] bool isValidCandidate(std::string_view text, std::string_view lowerWord) const;
  void putAllowedWordFirst(std::string_view word, std::vector<std::string>& candidates) const;

  const SpellChecker& spellChecker_;
  const KnownWords& knownWords_;
  const NearbyKeys& nearbyKeys_;
};

}  // namespace mirvane
