#include "platform/simulated/manual_task_queue.h"

#include <utility>

namespace mirvane::simulated {

void ManualTaskQueue::post(std::function<void()> task) {
  tasks_.push_back(std::move(task));
}

bool ManualTaskQueue::runOne() {
  if (tasks_.empty()) return false;
  const auto task = std::move(tasks_.front());
  tasks_.pop_front();
  task();
  return true;
}

void ManualTaskQueue::runUntilIdle() {
  while (runOne()) {
  }
}

}  // namespace mirvane::simulated
