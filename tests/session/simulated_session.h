#pragma once

#include "platform/simulated/desktop.h"
#include "platform/simulated/in_memory_user_defaults.h"
#include "platform/simulated/scripted_lexical_tagger.h"
#include "platform/simulated/scripted_spell_checker.h"
#include "session/correction_engine.h"

namespace mirvane {

/// A tracking engine and the study's own window with a text field.
struct SimulatedSession {
  explicit SimulatedSession(simulated::ScriptedSpellChecker::Script words = {})
      : spellChecker(std::move(words)) {
    engine.startTracking();
  }

  CorrectionEngine& operator*() { return engine; }
  CorrectionEngine* operator->() { return &engine; }

  simulated::Desktop desktop;
  simulated::TextElement& field =
      desktop.openElement(simulated::ElementKind::multiLine, {}, {.isOwn = true});
  simulated::InMemoryUserDefaults defaults;
  UserSettings settings{defaults, desktop.workspace()};
  TypingConfig config;
  simulated::ScriptedSpellChecker spellChecker;
  simulated::ScriptedLexicalTagger tagger;
  ContextScore::Vocabulary vocabulary;
  SuggestionEngine suggestionEngine{config, settings, {spellChecker, nullptr, tagger, vocabulary}};
  CorrectionEngine engine{{{desktop.monitors(), desktop.workspace(), desktop.tasks()},
                           {config, settings, suggestionEngine, desktop.accessibility(),
                            desktop.poster(), desktop.clock()}}};
};

}  // namespace mirvane
