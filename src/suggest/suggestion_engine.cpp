#include "suggest/suggestion_engine.h"

#include <algorithm>

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
  auto ranked = suggestionPriority.rankSuggestions(
      word, candidateGeneration.generateCandidates(word), context, &state);
  const auto itself = std::find_if(ranked.begin(), ranked.end(), [&](const std::string& entry) {
    return text::equalIgnoringCase(entry, word);
  });
  if (itself != ranked.end() && knownWords.isKnownWord(text::lowercased(word))) {
    std::rotate(ranked.begin(), itself, itself + 1);
  }
  return ranked;
}

}  // namespace mirvane
