#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "model/keystroke_records.h"
#include "model/typing_config.h"
#include "suggest/compared_text.h"
#include "suggest/nearby_keys.h"

namespace mirvane {

/// What a word may be once its repeated letters are taken back, in lower case and without the word
/// itself.
class RepeatVariantSet {
 public:
  /// `variants` are the repeatCollapseVariants of the word in lower case.
  RepeatVariantSet(const ComparedText& word, const std::vector<std::string>& variants);

  [[nodiscard]] bool contains(const ComparedText& candidate) const;
  [[nodiscard]] const std::deque<ComparedText>& variants() const { return variants_; }

 private:
  std::deque<ComparedText> variants_;
};

// Each feature recognises one kind of typing error. All compare lower-cased characters.

/// Probability of the one neighbouring key by which word and candidate differ, else 0.
[[nodiscard]] double nearbyKeyScore(const ComparedText& word, const ComparedText& candidate,
                                    const NearbyKeys& nearbyKeys);

/// Share of the longer text that both have in common from the start, 0 to 1.
[[nodiscard]] double prefixSimilarity(const ComparedText& word, const ComparedText& candidate);

/// 1.5 when two neighbouring letters are swapped, 0.8 for two distant ones, else 0.
[[nodiscard]] double transpositionScore(const ComparedText& word, const ComparedText& candidate);

/// 2.2 when the typist is repeating keys, or the word shows it, and the candidate is the word with
/// its repeated letters taken back; else 0. `state` may be null.
[[nodiscard]] double repeatScore(bool wordHasTripleRepeat, const ComparedText& candidate,
                                 const RepeatVariantSet& repeatVariantSet,
                                 const TypingState* state);

/// A double letter typed once: 1.0 for words of fewer than 4 characters, 1.5 for longer, else 0.
[[nodiscard]] double missedDoubleScore(const ComparedText& word, const ComparedText& candidate);

/// A repeated key combined with a neighbouring-key error: probability + 1.5, else 0.
[[nodiscard]] double repeatNearbyScore(const ComparedText& candidate,
                                       const RepeatVariantSet& repeatVariantSet,
                                       const NearbyKeys& nearbyKeys);

/// Left-out vowels: 1.5 for one, 1.2 for two, else 0.
[[nodiscard]] double vowelOmissionScore(const ComparedText& word, const ComparedText& candidate);

/// What speaks against replacing the word: 3.0 when it is a known word, plus 0.45 when the
/// candidate only completes it; 0 for the word itself.
[[nodiscard]] double correctionPenalty(const ComparedText& word, bool wordIsKnown,
                                       const ComparedText& candidate);

/// Weights of the motor and the spelling features. Both are 1 when `state` is null.
[[nodiscard]] double motorWeight(const TypingState* state, const MotorPriorWeights& weights);
[[nodiscard]] double phoneticWeight(const TypingState* state, const MotorPriorWeights& weights);

}  // namespace mirvane
