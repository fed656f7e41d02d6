#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "model/user_settings.h"
#include "platform/clock.h"
#include "platform/event_monitors.h"
#include "platform/simulated/desktop.h"
#include "platform/simulated/in_memory_user_defaults.h"
#include "recording/recording.h"
#include "session/correction_engine.h"
#include "session/session_snapshot.h"
#include "suggest/suggestion_engine.h"
#include "support/shipped_resources.h"

namespace mirvane {

/// A recording typed into a simulated text field with a correction engine attached, as a session
/// screen would have it: session 2 with the cycle key, session 1 without.
class RecordedSession {
 public:
  /// `start` is the instant of the recording's second 0. Both arguments must outlive the session.
  RecordedSession(const Recording& recording, ShippedResources& shipped, Clock::DateTime start);

  /// Lets one event happen, with everything that follows from it. After a "done" event the screen
  /// is gone: nothing has an effect any more.
  void play(const RecordedEvent& event);

  /// Plays all events of the recording.
  void playAll();

  /// When the session is frozen.
  [[nodiscard]] Clock::DateTime end() const;

  /// The session frozen at its end.
  [[nodiscard]] SessionSnapshot snapshot() const;

  [[nodiscard]] const CorrectionEngine& engine() const { return engine_; }
  [[nodiscard]] const simulated::TextElement& field() const { return field_; }

 private:
  [[nodiscard]] simulated::TextElement& openField();
  [[nodiscard]] EngineServices engineServices();
  void applySettings();
  void installCycleKey();
  void activate(const std::string& app);
  void pickChip(std::size_t index);
  void reset();
  void finish();

  const Recording& recording_;
  const Clock::DateTime start_;
  simulated::Desktop desktop_;
  simulated::InMemoryUserDefaults defaults_;
  simulated::TextElement& field_;
  UserSettings settings_;
  /// Stand in for the shipped resources where the recording brings its own.
  struct OwnLanguage;
  std::shared_ptr<OwnLanguage> ownLanguage_;
  const TypingConfig config_;
  SuggestionEngine suggestionEngine_;
  CorrectionEngine engine_;
  std::optional<MonitorHandle> cycleKeyMonitor_;
  bool isDone_ = false;
};

}  // namespace mirvane
