#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "model/typing_config.h"
#include "model/user_settings.h"
#include "platform/simulated/desktop.h"
#include "platform/simulated/in_memory_user_defaults.h"
#include "session/correction_engine.h"
#include "suggest/suggestion_engine.h"

namespace mirvane {

/// The text field of a simulated session, with the caret at the end of its text.
struct SimulatedField {
  simulated::ElementKind kind = simulated::ElementKind::multiLine;
  std::string_view text = {};
  /// Identifier of the application that holds the field.
  std::string application = "org.mirvane.MirvaneTest";
};

/// The study's own window on a simulated desktop: one focused text field and a tracking correction
/// engine. Parameters and language must outlive it.
class SimulatedSession {
 public:
  SimulatedSession(const TypingConfig& config, const LanguageServices& language,
                   const SimulatedField& field = {});

  [[nodiscard]] simulated::Desktop& desktop() { return desktop_; }
  [[nodiscard]] simulated::TextElement& field() { return field_; }
  [[nodiscard]] const simulated::TextElement& field() const { return field_; }
  [[nodiscard]] UserSettings& settings() { return settings_; }
  [[nodiscard]] CorrectionEngine& engine() { return engine_; }
  [[nodiscard]] const CorrectionEngine& engine() const { return engine_; }

 private:
  simulated::Desktop desktop_;
  simulated::InMemoryUserDefaults defaults_;
  simulated::TextElement& field_;
  UserSettings settings_;
  SuggestionEngine suggestionEngine_;
  CorrectionEngine engine_;
};

}  // namespace mirvane
