#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "capture/key_input_tracker.h"
#include "correct/typing_view_model.h"
#include "model/correction_event.h"
#include "observation/observable.h"
#include "platform/clock.h"

namespace mirvane {

/// What every correction engine of the application shares.
struct EngineServices {
  KeyInputTracker::Platform capture;
  TypingViewModel::Services correction;
};

/// Follows a session as it happens, on the main thread.
class SessionObserver {
 public:
  SessionObserver() = default;
  SessionObserver(const SessionObserver&) = delete;
  SessionObserver& operator=(const SessionObserver&) = delete;
  virtual ~SessionObserver() = default;

  /// A screen came up or went away. The tracker starts after this call and has stopped before it.
  virtual void trackingChanged(bool isTracking) = 0;
  /// A correction or cycle step was logged; the engine still shows the suggestions before it.
  virtual void corrected(const CorrectionEvent& logged) = 0;
  virtual void wasReset() = 0;
};

/// The hub of one typing session: owns the key input tracker and the typing view model, and turns
/// what they report into counters and logs. All counters start at 0 and grow until the next reset.
class CorrectionEngine {
 public:
  /// What the session has measured so far.
  struct Measurements {
    std::int64_t keystrokeCount = 0;  ///< characters received from the tracker
    std::int64_t wordsCompleted = 0;  ///< single boundary characters typed
    std::int64_t autoCorrectionCount = 0;
    std::int64_t manualCorrectionCount = 0;
    std::int64_t cycleKeyCount = 0;
    std::int64_t nearbyKeyCount = 0;
    std::int64_t repeatKeyCount = 0;
    std::vector<CorrectionEvent> correctionLog;  ///< corrections and cycle steps as reported
    std::string rawInputLog;                     ///< everything typed, one text after the other
  };

  /// Enough to take a session up again in another run of the program.
  struct State {
    Measurements measurements;
    Clock::DateTime sessionStart;
    double elapsed = 0;  ///< seconds
    /// What can be cycled; its target names no element.
    std::optional<SuggestionCycler::Record> cycled;
  };

  explicit CorrectionEngine(const EngineServices& services);
  CorrectionEngine(const CorrectionEngine&) = delete;
  CorrectionEngine& operator=(const CorrectionEngine&) = delete;

  /// Null, or somebody who lives for as long as it stands here.
  SessionObserver* observer = nullptr;

  /// Set while a screen has the tracker running, so that it is not started twice.
  bool isTracking = false;

  /// The first three suggestions for the word being typed. Announced at every refresh.
  [[nodiscard]] const Observable<std::vector<std::string>>& suggestions() const {
    return suggestions_;
  }
  /// Position of the candidate the cycler shows; 0 when there is none. Announced likewise.
  [[nodiscard]] const Observable<std::int64_t>& cycleIndex() const { return cycleIndex_; }

  [[nodiscard]] const Measurements& measurements() const { return measurements_; }
  /// When the engine was made or last reset.
  [[nodiscard]] Clock::DateTime sessionStart() const { return sessionStart_; }
  /// Seconds since then, also those the machine slept: what the difference of two date-times would
  /// be if nobody had set the clock in between.
  [[nodiscard]] double elapsed() const { return clock_.uptimeSeconds() - startUptime_; }
  [[nodiscard]] KeyInputTracker& keyInputTracker() { return keyInputTracker_; }
  [[nodiscard]] const KeyInputTracker& keyInputTracker() const { return keyInputTracker_; }
  [[nodiscard]] TypingViewModel& typingViewModel() { return typingViewModel_; }
  [[nodiscard]] const TypingViewModel& typingViewModel() const { return typingViewModel_; }

  /// For screens: `start` and `stop` of the tracker, guarded by `isTracking`.
  void startTracking();
  void stopTracking();

  /// Takes over the view model's suggestions and the cycler's position.
  void refreshSuggestions();

  /// Starts the session anew; a running tracker goes on running.
  void reset();

  [[nodiscard]] State state() const;

  /// Goes on from a state as if the program had run all the time but for the pause: `elapsed`
  /// counts on, the date of the start stays. `keys` are the presses to judge the typing by, newest
  /// first.
  void restore(State state, KeyEventList keys);

  /// After `restore`, once the field has its text and the focus: works out what a key would have
  /// left behind, the suggestions and what can be cycled.
  void resume();

  /// The subscribers of tracker, view model and cycler.
  void handleKeyEvents(const KeyEventList& events);
  void handleCorrection(const CorrectionEvent& event);
  void handleCycle(const std::string& previousText, const std::string& newText);

 private:
  void log(CorrectionEvent event);
  [[nodiscard]] std::optional<std::int64_t> wordIndexFor(std::string_view type) const;

  const Clock& clock_;
  Observable<std::vector<std::string>> suggestions_;
  Observable<std::int64_t> cycleIndex_;
  Measurements measurements_;
  Clock::DateTime sessionStart_;
  double startUptime_;
  std::optional<SuggestionCycler::Record> restoredCycle_;
  KeyInputTracker keyInputTracker_;
  TypingViewModel typingViewModel_;
};

}  // namespace mirvane
