#include "suggest/suggestion_features.h"

#include <algorithm>
#include <vector>

#include "suggest/character_difference.h"
#include "suggest/vowels.h"
#include "text/canonical.h"

namespace mirvane {
namespace {

constexpr double adjacentSwap = 1.5, distantSwap = 0.8;
constexpr double repeatBonus = 2.2;
constexpr double missedDoubleShortWord = 1.0, missedDoubleLongerWord = 1.5;
constexpr std::size_t shortWordLimit = 4;
constexpr double repeatPlusNeighborOffset = 1.5;
constexpr double oneVowelLeftOut = 1.5, twoVowelsLeftOut = 1.2;
constexpr double knownWordPenalty = 3.0, completionPenalty = 0.45;

std::vector<std::string_view> withoutVowels(const ComparedText& text) {
  std::vector<std::string_view> rest;
  std::copy_if(text.characters().begin(), text.characters().end(), std::back_inserter(rest),
               [](std::string_view character) { return !isVowel(character); });
  return rest;
}

/// The motor prior, held within 0 to 1; not a number counts as 1.
double clampedPrior(const TypingState& state) {
  if (state.motorPrior < 0) return 0;
  return state.motorPrior < 1 ? state.motorPrior : 1;
}

double weight(const TypingState* state, double full) {
  return state == nullptr ? 1.0 : 1.0 + (full - 1.0) * clampedPrior(*state);
}

}  // namespace

RepeatVariantSet::RepeatVariantSet(const ComparedText& word,
                                   const std::vector<std::string>& variants) {
  for (const auto& variant : variants) {
    if (!text::equalIgnoringCase(variant, word.lower())) variants_.emplace_back(variant);
  }
}

bool RepeatVariantSet::contains(const ComparedText& candidate) const {
  return std::any_of(variants_.begin(), variants_.end(), [&](const ComparedText& variant) {
    return text::canonicallyEqual(variant.lower(), candidate.lower());
  });
}

double nearbyKeyScore(const ComparedText& word, const ComparedText& candidate,
                      const NearbyKeys& nearbyKeys) {
  const auto k = onlyDifference(word.characters(), candidate.characters());
  if (!k) return 0;
  return nearbyKeys.nearbyKeyProbability(word.characters()[*k], candidate.characters()[*k]);
}

double prefixSimilarity(const ComparedText& word, const ComparedText& candidate) {
  const auto shared = commonPrefixLength(word.characters(), candidate.characters());
  const auto longer = std::max(word.originalCount(), candidate.originalCount());
  return longer == 0 ? 0 : static_cast<double>(shared) / static_cast<double>(longer);
}

double transpositionScore(const ComparedText& word, const ComparedText& candidate) {
  const Characters w = word.characters(), c = candidate.characters();
  if (w.size() != c.size() || w.size() < 2) return 0;
  const std::size_t i = commonPrefixLength(w, c);
  if (i == w.size()) return 0;
  const std::size_t j = i + 1 + commonPrefixLength(w.subspan(i + 1), c.subspan(i + 1));
  if (j >= w.size()) return 0;
  const bool restIsEqual =
      commonPrefixLength(w.subspan(j + 1), c.subspan(j + 1)) == w.size() - j - 1;
  const bool isSwapped = text::sameCharacter(w[i], c[j]) && text::sameCharacter(w[j], c[i]);
  if (!restIsEqual || !isSwapped) return 0;
  return j == i + 1 ? adjacentSwap : distantSwap;
}

double repeatScore(bool wordHasTripleRepeat, const ComparedText& candidate,
                   const RepeatVariantSet& repeatVariantSet, const TypingState* state) {
  const bool isRepeating = (state != nullptr && state->isRepeating) || wordHasTripleRepeat;
  return isRepeating && repeatVariantSet.contains(candidate) ? repeatBonus : 0;
}

double missedDoubleScore(const ComparedText& word, const ComparedText& candidate) {
  const Characters c = candidate.characters();
  for (std::size_t i = 0; i + 1 < c.size(); ++i) {
    if (text::sameCharacter(c[i], c[i + 1]) && equalsWithout(c, i, word.characters())) {
      return word.length() < shortWordLimit ? missedDoubleShortWord : missedDoubleLongerWord;
    }
  }
  return 0;
}

double repeatNearbyScore(const ComparedText& candidate, const RepeatVariantSet& repeatVariantSet,
                         const NearbyKeys& nearbyKeys) {
  if (repeatVariantSet.contains(candidate)) return 0;
  double best = 0;
  for (const auto& variant : repeatVariantSet.variants()) {
    const auto k = onlyDifference(variant.characters(), candidate.characters());
    if (!k) continue;
    const double probability =
        nearbyKeys.nearbyKeyProbability(variant.characters()[*k], candidate.characters()[*k]);
    if (probability > 0) best = std::max(best, probability + repeatPlusNeighborOffset);
  }
  return best;
}

double vowelOmissionScore(const ComparedText& word, const ComparedText& candidate) {
  const std::size_t missing =
      candidate.length() > word.length() ? candidate.length() - word.length() : 0;
  if (missing != 1 && missing != 2) return 0;
  const auto a = withoutVowels(word), b = withoutVowels(candidate);
  if (a.size() != b.size() || commonPrefixLength(a, b) != a.size()) return 0;
  return missing == 1 ? oneVowelLeftOut : twoVowelsLeftOut;
}

double correctionPenalty(const ComparedText& word, bool wordIsKnown,
                         const ComparedText& candidate) {
  const Characters w = word.characters(), c = candidate.characters();
  const bool beginsWithWord = commonPrefixLength(w, c) == w.size();
  if (beginsWithWord && w.size() == c.size()) return 0;
  const bool isCompletion = beginsWithWord && c.size() > w.size();
  return (wordIsKnown ? knownWordPenalty : 0) + (isCompletion ? completionPenalty : 0);
}

double motorWeight(const TypingState* state, const MotorPriorWeights& weights) {
  return weight(state, weights.motorBoost);
}

double phoneticWeight(const TypingState* state, const MotorPriorWeights& weights) {
  return weight(state, weights.phoneticDamp);
}

}  // namespace mirvane
