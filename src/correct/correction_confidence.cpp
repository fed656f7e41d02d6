#include "correct/correction_confidence.h"

#include <algorithm>

#include "suggest/character_difference.h"
#include "suggest/repeat_variants.h"
#include "text/canonical.h"
#include "text/characters.h"
#include "text/letter_case.h"

namespace mirvane {
namespace {

constexpr double tripleRepeatConfidence = 0.95;
constexpr double insertionOrDeletionConfidence = 0.85;

bool isRepeatVariant(std::string_view candidate, std::string_view word) {
  const auto variants = repeatCollapseVariants(word);
  return std::any_of(variants.begin(), variants.end(), [&](const std::string& variant) {
    return text::canonicallyEqual(variant, candidate);
  });
}

}  // namespace

double correctionConfidence(std::string_view typed, std::string_view candidate,
                            const KnownWords& knownWords, const NearbyKeys& nearbyKeys) {
  const auto a = text::lowercased(typed), b = text::lowercased(candidate);
  if (knownWords.isKnownWord(a)) return 0;
  if (text::characterCount(a) == text::characterCount(b)) {
    return substitutionScore(a, b, knownWords, nearbyKeys);
  }
  if (!knownWords.isKnownWord(b)) return 0;
  if (hasTripleRepeat(a) && isRepeatVariant(b, a)) return tripleRepeatConfidence;
  return isSingleInsertionOrDeletion(a, b) ? insertionOrDeletionConfidence : 0;
}

double substitutionScore(std::string_view a, std::string_view b, const KnownWords& knownWords,
                         const NearbyKeys& nearbyKeys) {
  const auto typed = text::characters(a), meant = text::characters(b);
  const auto k = onlyDifference(typed, meant);
  if (!k || !knownWords.isSpelledCorrectly(b)) return 0;
  const double probability = nearbyKeys.nearbyKeyProbability(typed[*k], meant[*k]);
  return std::clamp(2 * probability + 0.5, 0.0, 1.0);
}

bool isSingleInsertionOrDeletion(std::string_view a, std::string_view b) {
  auto longer = text::characters(a), shorter = text::characters(b);
  if (longer.size() == shorter.size()) return onlyDifference(longer, shorter).has_value();
  if (longer.size() < shorter.size()) longer.swap(shorter);
  return equalsWithout(longer, commonPrefixLength(longer, shorter), shorter);
}

}  // namespace mirvane
