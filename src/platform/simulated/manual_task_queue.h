#pragma once

#include <cstddef>
#include <deque>
#include <functional>

#include "platform/task_queue.h"

namespace mirvane::simulated {

/// A main-thread queue that runs only when it is told to.
class ManualTaskQueue : public TaskQueue {
 public:
  /// Also from within a task: the new one comes last.
  void post(std::function<void()> task) override;

  /// Runs the oldest task; false when there was none.
  bool runOne();

  /// Runs tasks, those that they post included, until none is left. A call from within a task
  /// runs the tasks behind it at once.
  void runUntilIdle();

  [[nodiscard]] std::size_t size() const { return tasks_.size(); }

 private:
  std::deque<std::function<void()>> tasks_;
};

}  // namespace mirvane::simulated
