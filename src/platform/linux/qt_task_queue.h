#pragma once

#include <QObject>
#include <functional>

#include "platform/task_queue.h"

namespace mirvane {

/// The event loop as the main thread's queue.
class QtTaskQueue : public QObject, public TaskQueue {
  Q_OBJECT

 public:
  void post(std::function<void()> task) override;

  /// Runs what is waiting, and what that posts, before it returns. Whoever delivers the next key
  /// calls it first, so that a key is dealt with before the field sees the one after it, however
  /// fast they come.
  void runPending();

  /// Forgets what is waiting.
  void drop();

  bool event(QEvent* event) override;
};

}  // namespace mirvane
