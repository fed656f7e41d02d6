#include "suggest/suggestion_priority.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace mirvane {
namespace {

constexpr double prefixWeight = 0.35;

}  // namespace

SuggestionPriority::RankedWord::RankedWord(std::string_view word, const KnownWords& knownWords,
                                           const std::vector<std::string>& lowerVariants)
    : text(word),
      isKnown(knownWords.isKnownWord(text.lower())),
      hasTripleRepeat(mirvane::hasTripleRepeat(text.lower())),
      repeatVariantSet(text, lowerVariants) {}

std::vector<std::string> SuggestionPriority::rankSuggestions(
    std::string_view word, const std::vector<std::string>& lowerVariants,
    std::vector<std::string> candidates, const ContextSignals* context,
    const TypingState* state) const {
  if (word.empty() || candidates.empty()) return candidates;
  const RankedWord rankedWord(word, knownWords_, lowerVariants);
  std::vector<std::pair<double, std::string>> scored;
  scored.reserve(candidates.size());
  for (auto& candidate : candidates) {
    const double score = suggestionScore(rankedWord, candidate, context, state);
    scored.emplace_back(score, std::move(candidate));
  }
  std::stable_sort(scored.begin(), scored.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  std::transform(scored.begin(), scored.end(), candidates.begin(),
                 [](auto& entry) { return std::move(entry.second); });
  return candidates;
}

double SuggestionPriority::suggestionScore(const RankedWord& word, std::string_view candidate,
                                           const ContextSignals* context,
                                           const TypingState* state) const {
  const ComparedText compared(candidate);
  // Added in this order, always: the last bit decides ties.
  const double motorSum =
      nearbyKeyScore(word.text, compared, nearbyKeys_) + transpositionScore(word.text, compared) +
      repeatScore(word.hasTripleRepeat, compared, word.repeatVariantSet, state) +
      missedDoubleScore(word.text, compared) +
      repeatNearbyScore(compared, word.repeatVariantSet, nearbyKeys_);
  const double spellingSum = prefixWeight * prefixSimilarity(word.text, compared) +
                             vowelOmissionScore(word.text, compared);
  double score = motorSum * motorWeight(state, weights_) +
                 spellingSum * phoneticWeight(state, weights_) -
                 correctionPenalty(word.text, word.isKnown, compared);
  if (context != nullptr) score += contextScore_.contextScore(candidate, *context);
  return score;
}

}  // namespace mirvane
