#pragma once

#include "platform/key_event_poster.h"
#include "platform/linux/other_applications.h"
#include "platform/linux/qt_task_queue.h"

namespace mirvane {

/// Posts key events to this application's own windows, by way of the task queue: they arrive after
/// everything queued before and before the next key of the keyboard. While another application is
/// active, to that one.
class QtKeyEventPoster : public KeyEventPoster {
 public:
  /// `others` is null where no keys can be posted to other applications.
  explicit QtKeyEventPoster(QtTaskQueue& queue, OtherApplications* others = nullptr)
      : queue_(queue), others_(others) {}

  /// True while a password field has the focus, and while a terminal is in front.
  [[nodiscard]] bool isSecureInputEnabled() const override;

  /// The source may be let go of while its events are still on their way.
  [[nodiscard]] std::unique_ptr<KeyEventSource> createSource(
      std::string_view textBeforeCaret) override;

 private:
  QtTaskQueue& queue_;
  OtherApplications* others_;
};

}  // namespace mirvane
