#pragma once

#include <string_view>

#include "platform/simulated/event_dispatcher.h"
#include "platform/simulated/in_memory_accessibility.h"
#include "platform/simulated/in_memory_event_monitors.h"
#include "platform/simulated/in_memory_key_event_poster.h"
#include "platform/simulated/in_memory_workspace.h"
#include "platform/simulated/keyboard.h"
#include "platform/simulated/manual_task_queue.h"
#include "platform/simulated/pointer.h"
#include "platform/simulated/secure_input.h"
#include "platform/simulated/virtual_clock.h"

namespace mirvane::simulated {

/// How fast a text is typed, in seconds.
struct TypingRhythm {
  double gap = 0.18;   ///< from one key-down to the next
  double hold = 0.09;  ///< from a key-down to its key-up; one longer than `gap` ends with the gap
};

/// A whole desktop in memory, the same on every run. It starts with no application.
///
/// Its parts deliver events at once but run no task: whoever drives them calls `settle` to let the
/// tasks run, between two events as on a real desktop. The operations of this class do so.
class Desktop {
 public:
  Desktop() = default;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  [[nodiscard]] VirtualClock& clock() { return clock_; }
  [[nodiscard]] ManualTaskQueue& tasks() { return tasks_; }
  [[nodiscard]] InMemoryWorkspace& workspace() { return workspace_; }
  [[nodiscard]] SecureInput& secureInput() { return secureInput_; }
  [[nodiscard]] InMemoryEventMonitors& monitors() { return monitors_; }
  [[nodiscard]] InMemoryAccessibility& accessibility() { return accessibility_; }
  [[nodiscard]] InMemoryKeyEventPoster& poster() { return poster_; }
  [[nodiscard]] Keyboard& keyboard() { return keyboard_; }
  [[nodiscard]] Pointer& pointer() { return pointer_; }

  /// Starts an application and brings it to the front.
  Application& openApplication(Application::Description description = {});
  /// Starts an application with one text element, in front and focused.
  TextElement& openElement(ElementKind kind = ElementKind::multiLine, std::string_view text = {},
                           Application::Description application = {});

  /// Runs all waiting tasks.
  void settle() { tasks_.runUntilIdle(); }

  /// Lets time pass: waiting tasks run first, then a held key repeats and tasks run after each.
  void advance(double seconds) { advanceTo(clock_.monotonicSeconds() + seconds); }
  void advanceTo(double monotonicSeconds);

  /// Strikes one key now and lets `rhythm.gap` pass.
  void strike(const KeyStroke& key, TypingRhythm rhythm = {});
  /// Strikes the keys of a text's characters one after the other ("\b" is Backspace).
  void type(std::string_view text, TypingRhythm rhythm = {});

 private:
  VirtualClock clock_;
  ManualTaskQueue tasks_;
  InMemoryWorkspace workspace_;
  SecureInput secureInput_{workspace_};
  InMemoryEventMonitors monitors_;
  InMemoryAccessibility accessibility_{workspace_};
  EventDispatcher dispatcher_{workspace_, monitors_, secureInput_};
  InMemoryKeyEventPoster poster_{dispatcher_, tasks_, secureInput_, clock_};
  Keyboard keyboard_{dispatcher_, clock_};
  Pointer pointer_{dispatcher_, workspace_, clock_};
};

}  // namespace mirvane::simulated
