#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/typing_config.h"
#include "model/user_settings.h"
#include "platform/lexical_tagger.h"
#include "platform/spell_checker.h"
#include "platform/word_embedding.h"
#include "suggest/candidate_generation.h"
#include "suggest/context_score.h"
#include "suggest/known_words.h"
#include "suggest/nearby_keys.h"
#include "suggest/suggestion_priority.h"

namespace mirvane {

/// The English services that suggestions are made with.
struct LanguageServices {
  const SpellChecker& spellChecker;
  const WordEmbedding* embedding;  ///< null when there is none
  const LexicalTagger& tagger;
  const ContextScore::Vocabulary& vocabulary;
};

/// The parts of the suggestion engine, wired together. One instance serves all sessions.
struct SuggestionEngine {
  /// Everything given must outlive the engine.
  SuggestionEngine(const TypingConfig& config, const UserSettings& settings,
                   const LanguageServices& language);
  SuggestionEngine(const SuggestionEngine&) = delete;
  SuggestionEngine& operator=(const SuggestionEngine&) = delete;

  /// What to suggest for the word at the caret, best first: its candidates, ranked; the word itself
  /// leads when it is a known one. `context` may be null.
  [[nodiscard]] std::vector<std::string> suggestionsFor(std::string_view word,
                                                        const ContextSignals* context,
                                                        const TypingState& state) const;

  const KnownWords knownWords;
  const NearbyKeys nearbyKeys;
  const CandidateGeneration candidateGeneration;
  const ContextScore contextScore;
  const SuggestionPriority suggestionPriority;
};

}  // namespace mirvane
