#pragma once

#include "platform/key_event_poster.h"
#include "platform/linux/qt_task_queue.h"

namespace mirvane {

/// Posts key events to this application's own windows, by way of the task queue: they arrive after
/// everything queued before and before the next key of the keyboard.
class QtKeyEventPoster : public KeyEventPoster {
 public:
  explicit QtKeyEventPoster(QtTaskQueue& queue) : queue_(queue) {}

  /// True while a password field of an own window has the focus.
  [[nodiscard]] bool isSecureInputEnabled() const override;

  /// The source may be let go of while its events are still on their way.
  [[nodiscard]] std::unique_ptr<KeyEventSource> createSource() override;

 private:
  QtTaskQueue& queue_;
};

}  // namespace mirvane
