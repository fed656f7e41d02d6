#pragma once

#include <string>
#include <vector>

#include "model/user_settings.h"
#include "platform/simulated/desktop.h"
#include "platform/simulated/in_memory_user_defaults.h"
#include "session/correction_engine.h"
#include "suggest/suggestion_engine.h"

namespace mirvane {

/// A simulated desktop whose typing a running correction engine watches. It starts with no
/// application. What `language` refers to must outlive this object.
struct CorrectingDesktop {
  explicit CorrectingDesktop(const LanguageServices& language, TypingConfig parameters = {});
  ~CorrectingDesktop() { engine.stopTracking(); }

  [[nodiscard]] TypingViewModel& viewModel() { return engine.typingViewModel(); }
  [[nodiscard]] SuggestionCycler& cycler() { return viewModel().suggestionCycler(); }

  /// Makes one cycle step, as the cycle key does.
  bool cycle();
  /// Picks a suggestion, as a chip does.
  void pick(const std::string& suggestion);

  /// The correction log, each entry like "helo>hello auto-other 0.85".
  [[nodiscard]] std::vector<std::string> log() const;
  /// How many Backspace keys have been synthesized.
  [[nodiscard]] std::ptrdiff_t postedBackspaces();

  simulated::Desktop desktop;
  simulated::InMemoryUserDefaults defaults;
  UserSettings settings{defaults, desktop.workspace()};
  const TypingConfig config;
  SuggestionEngine suggestionEngine;
  CorrectionEngine engine;
};

}  // namespace mirvane
