#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/event_monitors.h"
#include "platform/task_queue.h"
#include "recording/study_recording.h"
#include "session/correction_engine.h"

namespace mirvane {

/// Keeps what one session's recording holds: the keys of the own windows while a screen has the
/// session running, and what the engine made of them. Of a key typed in another program it takes
/// note that there was one, and leaves out the corrections that follow from it.
class SessionRecorder : public SessionObserver {
 public:
  struct Platform {
    EventMonitors& monitors;
    TaskQueue& tasks;
    const Clock& clock;
  };

  /// What has been recorded.
  struct Record {
    RecordedStudySession times;
    std::vector<RecordedEvent> events;
  };

  /// Follows `engine`, which must outlive it, from now on: this is second 0. `session` is 1 or 2.
  SessionRecorder(std::int64_t session, CorrectionEngine& engine, const Platform& platform);
  ~SessionRecorder() override;
  SessionRecorder(const SessionRecorder&) = delete;
  SessionRecorder& operator=(const SessionRecorder&) = delete;

  /// Called when the session has changed, by keys of other programs too; the engine may be about to
  /// take notice of the change itself.
  std::function<void()> onChange;

  [[nodiscard]] const Record& record() const { return record_; }
  /// What is recorded at this moment, as `RecordedEvent::t` counts.
  [[nodiscard]] double seconds() const { return secondsAt(platform_.clock.monotonicSeconds()); }
  /// Whether the latest key went to an own window, and with it what can be cycled now.
  [[nodiscard]] bool wasLastKeyOwn() const { return wasLastKeyOwn_; }

  /// The participant ended the session with this text in its field.
  void done(std::string text);

  /// Goes on after a record that an earlier run has made; `seconds` is where its time stood.
  void restore(Record record, double seconds);

  /// The recorded presses since the last Reset as the tracker keeps them, newest first.
  [[nodiscard]] KeyEventList keyEvents() const;

  void trackingChanged(bool isTracking) override;
  void corrected(const CorrectionEvent& logged) override;
  void wasReset() override;

 private:
  void watch();
  void stopWatching();
  void recordKey(const InputEvent& event);
  void noteKeyElsewhere(const InputEvent& event);
  void recordChip(const std::string& suggestion);
  void add(RecordedEvent event);
  void announce() const;
  [[nodiscard]] double secondsAt(double monotonicSeconds) const;
  [[nodiscard]] double steadyTimeOf(double timestamp);

  CorrectionEngine& engine_;
  Platform platform_;
  double origin_;
  double displayLag_ = 0;  ///< what keys' timestamps are behind our clock, seconds
  Record record_;
  bool wasLastKeyOwn_ = true;
  std::optional<MonitorHandle> ownKeys_, keysElsewhere_;
  Lifetime lifetime_;
};

}  // namespace mirvane
