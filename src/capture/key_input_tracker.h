#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "capture/repeat_key_detector.h"
#include "capture/typed_word_buffer.h"
#include "model/keystroke_records.h"
#include "model/typing_config.h"
#include "observation/observable.h"
#include "platform/event_monitors.h"
#include "platform/task_queue.h"
#include "platform/workspace.h"

namespace mirvane {

/// User data of every key event this system types itself (the ASCII bytes of "mirvane"); the
/// tracker does not record such keys.
inline constexpr std::int64_t syntheticEventMarker = 0x6D697276616E65;

/// Watches the keyboard, in this application's windows and in all others, and keeps the recent key
/// presses with their gaps and hold times.
///
/// Everything happens on the main thread: the monitors only queue tasks, which do nothing once the
/// tracker is gone. The owner stops the tracker before discarding it.
class KeyInputTracker {
 public:
  static constexpr std::size_t eventCapacity = 500;

  struct Platform {
    EventMonitors& monitors;
    Workspace& workspace;
    TaskQueue& tasks;
  };

  KeyInputTracker(const Platform& platform, const TypingConfig& config);
  KeyInputTracker(const KeyInputTracker&) = delete;
  KeyInputTracker& operator=(const KeyInputTracker&) = delete;

  /// Called after every recorded key press with the whole list, newest first.
  std::function<void(const KeyEventList&)> onKeyEvent;

  [[nodiscard]] const Observable<KeyEventList>& events() const { return events_; }
  /// The runs found after the latest key press.
  [[nodiscard]] const Observable<std::vector<RepeatedKey>>& previousRepeatedKeys() const {
    return previousRepeatedKeys_;
  }
  [[nodiscard]] TypedWordBuffer& typedWordBuffer() { return typedWordBuffer_; }
  [[nodiscard]] const TypedWordBuffer& typedWordBuffer() const { return typedWordBuffer_; }
  [[nodiscard]] bool isStarted() const { return keyDownMonitor_->has_value(); }

  /// Installs the monitors; a refused one is left out. Does nothing when already started, and never
  /// installs a monitor twice.
  void start();

  /// Removes the monitors. What was recorded stays.
  void stop();

  /// Forgets the recorded keys and the words, and goes on watching.
  void reset();

  /// Takes keys that were recorded in an earlier run, newest first, for its own. Where the next
  /// key's clock has nothing to do with theirs, it has no gap.
  void restore(KeyEventList events);

  /// The platform-free entry points. Timestamps are seconds; `sourceUserData` is absent when no
  /// low-level event stands behind the key.
  void handleKeyDown(std::uint16_t keyCode, std::string_view characters,
                     std::uint64_t modifierFlags, double timestamp,
                     std::optional<std::int64_t> sourceUserData);
  void handleKeyUp(std::uint16_t keyCode, double timestamp,
                   std::optional<std::int64_t> sourceUserData);
  void handlePointerDown();
  void handleAppActivated();

 private:
  using Handle = Observable<std::optional<MonitorHandle>>;
  using Entry = void (KeyInputTracker::*)(const InputEvent&);

  void watchEverywhere(Handle& monitor, EventMask kind, Entry entry);
  void watchOwnWindows(Handle& monitor, EventMask kind, Entry entry);
  void observeActivation();
  /// A monitor handler that hands a copy of the event to `entry` as a task of its own.
  EventMonitors::Handler queued(Entry entry);
  void keyDown(const InputEvent& event);
  void keyUp(const InputEvent& event);
  void pointerDown(const InputEvent& event);
  void remove(Handle& monitor);

  void record(KeyEvent event);

  Platform platform_;
  Observable<KeyEventList> events_;
  bool isRestored_ = false;  ///< the newest event is of an earlier run
  TypedWordBuffer typedWordBuffer_;
  Handle keyDownMonitor_, keyUpMonitor_, mouseDownMonitor_, appActivationObserver_;
  Handle localKeyDownMonitor_, localKeyUpMonitor_;
  /// When each key that is still down went down, seconds.
  Observable<std::unordered_map<std::uint16_t, double>> pendingKeyDowns_;
  const RepeatKeyDetector repeatKeyDetector_;
  Observable<std::vector<RepeatedKey>> previousRepeatedKeys_;
  Lifetime lifetime_;
};

}  // namespace mirvane
