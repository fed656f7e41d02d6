#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/keystroke_records.h"
#include "model/typing_config.h"
#include "suggest/context_score.h"
#include "suggest/context_signals.h"
#include "suggest/known_words.h"
#include "suggest/nearby_keys.h"
#include "suggest/repeat_variants.h"
#include "suggest/suggestion_features.h"
#include "text/letter_case.h"

namespace mirvane {

/// Puts the candidates of a word in order of preference.
class SuggestionPriority {
 public:
  SuggestionPriority(const TypingConfig& config, const KnownWords& knownWords,
                     const NearbyKeys& nearbyKeys, const ContextScore& contextScore)
      : weights_(config.motorPriorWeights),
        knownWords_(knownWords),
        nearbyKeys_(nearbyKeys),
        contextScore_(contextScore) {}

  /// The same candidates, best first; equal scores keep their order. `context` and `state` may be
  /// null: then they have no influence. `lowerVariants` are the repeatCollapseVariants of the word
  /// in lower case.
  [[nodiscard]] std::vector<std::string> rankSuggestions(
      std::string_view word, const std::vector<std::string>& lowerVariants,
      std::vector<std::string> candidates, const ContextSignals* context,
      const TypingState* state) const;
  [[nodiscard]] std::vector<std::string> rankSuggestions(std::string_view word,
                                                         std::vector<std::string> candidates,
                                                         const ContextSignals* context,
                                                         const TypingState* state) const {
    return rankSuggestions(word, repeatCollapseVariants(text::lowercased(word)),
                           std::move(candidates), context, state);
  }

  /// A word with what its features need, worked out once for all its candidates.
  struct RankedWord {
    RankedWord(std::string_view word, const KnownWords& knownWords,
               const std::vector<std::string>& lowerVariants);
    RankedWord(std::string_view word, const KnownWords& knownWords)
        : RankedWord(word, knownWords, repeatCollapseVariants(mirvane::text::lowercased(word))) {}

    ComparedText text;
    bool isKnown;
    bool hasTripleRepeat;
    RepeatVariantSet repeatVariantSet;
  };

  /// The score of one candidate: no fixed range, higher is better.
  [[nodiscard]] double suggestionScore(const RankedWord& word, std::string_view candidate,
                                       const ContextSignals* context,
                                       const TypingState* state) const;

 private:
  const MotorPriorWeights weights_;
  const KnownWords& knownWords_;
  const NearbyKeys& nearbyKeys_;
  const ContextScore& contextScore_;
};

}  // namespace mirvane
