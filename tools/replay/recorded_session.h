#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "model/typing_config.h"
#include "platform/clock.h"
#include "platform/event_monitors.h"
#include "recording/recording.h"
#include "session/session_snapshot.h"
#include "support/shipped_resources.h"
#include "support/simulated_session.h"

namespace mirvane {

/// A recording typed into a simulated text field with a correction engine attached, as a session
/// screen would have it: session 2 with the cycle key, session 1 without.
class RecordedSession {
 public:
  /// `start` is the instant of the recording's second 0. Both arguments must outlive the session.
  RecordedSession(const Recording& recording, ShippedResources& shipped, Clock::DateTime start);

  RecordedSession(const RecordedSession&) = delete;
  RecordedSession& operator=(const RecordedSession&) = delete;
  ~RecordedSession();

  /// Lets one event happen, with everything that follows from it. After a "done" event the screen
  /// is gone: nothing has an effect any more.
  void play(const RecordedEvent& event);

  /// Plays all events of the recording.
  void playAll();

  /// When the session is frozen.
  [[nodiscard]] Clock::DateTime end() const;

  /// The session frozen at its end.
  [[nodiscard]] SessionSnapshot snapshot() const;

  [[nodiscard]] const CorrectionEngine& engine() const { return session_->engine(); }
  [[nodiscard]] const simulated::TextElement& field() const { return session_->field(); }

 private:
  /// The recording's own English.
  class OwnLanguage;

  void startClocks();
  void applySettings();
  void installCycleKey();
  void activate(const std::string& app);
  void pickChip(std::size_t index);
  void reset();
  void finish();

  const Recording& recording_;
  const Clock::DateTime start_;
  const TypingConfig config_;
  std::unique_ptr<OwnLanguage> ownLanguage_;
  std::unique_ptr<SimulatedSession> session_;
  std::optional<MonitorHandle> cycleKeyMonitor_;
  bool isDone_ = false;
};

}  // namespace mirvane
