#pragma once

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
};

/// The parts of the suggestion engine, wired together. One instance serves all sessions.
struct SuggestionEngine {
  SuggestionEngine(const TypingConfig& config, const UserSettings& settings,
                   const LanguageServices& language, ContextScore::Vocabulary vocabulary)
      : knownWords(language.spellChecker, settings),
        nearbyKeys(config),
        candidateGeneration(language.spellChecker, knownWords, nearbyKeys),
        contextScore(std::move(vocabulary), language.embedding, language.tagger),
        suggestionPriority(config, knownWords, nearbyKeys, contextScore) {}
  SuggestionEngine(const SuggestionEngine&) = delete;
  SuggestionEngine& operator=(const SuggestionEngine&) = delete;

  const KnownWords knownWords;
  const NearbyKeys nearbyKeys;
  const CandidateGeneration candidateGeneration;
  const ContextScore contextScore;
  const SuggestionPriority suggestionPriority;
};

}  // namespace mirvane
