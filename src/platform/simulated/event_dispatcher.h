#pragma once

#include <optional>

#include "platform/event_monitors.h"
#include "platform/simulated/in_memory_event_monitors.h"
#include "platform/simulated/in_memory_workspace.h"
#include "platform/simulated/secure_input.h"

namespace mirvane::simulated {

/// Brings one event to where it belongs: first to the monitors of the matching scope, then to the
/// focused element. Tasks that the monitors queue run later and find the element changed. With no
/// application in front, events get lost.
class EventDispatcher {
 public:
  EventDispatcher(InMemoryWorkspace& workspace, InMemoryEventMonitors& monitors,
                  const SecureInput& secureInput)
      : workspace_(workspace), monitors_(monitors), secureInput_(secureInput) {}

  /// A key or modifier of a keyboard.
  void deliverKey(const InputEvent& event);

  /// A synthesized key: apart from Backspace its text is inserted, whatever its key code.
  void deliverSynthesizedKey(const InputEvent& event);

  /// A click in a window of `target`.
  void deliverPointerDown(const InputEvent& event, const Application& target);

 private:
  void notifyKeyMonitors(const InputEvent& event);

  InMemoryWorkspace& workspace_;
  InMemoryEventMonitors& monitors_;
  const SecureInput& secureInput_;
};

}  // namespace mirvane::simulated
