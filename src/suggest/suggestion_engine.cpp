#include "suggest/suggestion_engine.h"

#include <algorithm>
#include <utility>

#include "suggest/repeat_variants.h"
#include "text/letter_case.h"

namespace mirvane {

SuggestionEngine::SuggestionEngine(const TypingConfig& config, const UserSettings& settings,
                                   const LanguageServices& language)
    : knownWords(language.spellChecker, settings),
      nearbyKeys(config),
      candidateGeneration(language.spellChecker, knownWords, nearbyKeys),
      contextScore(language.vocabulary, language.embedding, language.tagger),
      suggestionPriority(config, knownWords, nearbyKeys, contextScore) {}

std::vector<std::string> SuggestionEngine::suggestionsFor(std::string_view word,
                                                          const ContextSignals* context,
                                                          const TypingState& state) const {
  if (!CandidateGeneration::mayHaveCandidates(word)) return {};
  const auto lower = text::lowercased(word);
  const auto variants = repeatCollapseVariants(word);
  auto candidates = candidateGeneration.generateCandidates(word, variants);
  auto ranked = suggestionPriority.rankSuggestions(
      word, lower == word ? variants : repeatCollapseVariants(lower), std::move(candidates),
      context, &state);
  const auto itself = std::find_if(ranked.begin(), ranked.end(), [&](const std::string& entry) {
    return text::equalIgnoringCase(entry, word);
  });
  if (itself != ranked.end() && knownWords.isKnownWord(lower)) {
    std::rotate(ranked.begin(), itself, itself + 1);
  }
  return ranked;
}

}  // namespace mirvane
