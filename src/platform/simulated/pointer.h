#pragma once

#include "platform/simulated/event_dispatcher.h"
#include "platform/simulated/virtual_clock.h"

namespace mirvane::simulated {

/// The pointing device. A click is seen by the monitors first, then brings the application to the
/// front (with an activation notice when it was not) and moves its focus.
class Pointer {
 public:
  Pointer(EventDispatcher& dispatcher, InMemoryWorkspace& workspace, const VirtualClock& clock)
      : dispatcher_(dispatcher), workspace_(workspace), clock_(clock) {}

  /// A click beside all text elements: the focus within the application stays.
  void click(Application& application);
  /// A click into an element of the application; the caret goes to `position` (UTF-16 units).
  void click(Application& application, TextElement& element, std::int64_t position);

 private:
  EventDispatcher& dispatcher_;
  InMemoryWorkspace& workspace_;
  const VirtualClock& clock_;
};

}  // namespace mirvane::simulated
