#pragma once

#include <deque>
#include <functional>

#include "platform/task_queue.h"

namespace mirvane {

/// Delivers events one after the other: the next only when all that the handlers of the one before
/// have queued is done. To be used from the main thread.
class DeliveryQueue {
 public:
  struct Delivery {
    std::function<void()> begin;
    std::function<void()> end;
  };

  explicit DeliveryQueue(TaskQueue& tasks) : tasks_(tasks) {}

  void add(Delivery delivery);

 private:
  void next();
  void finish();

  TaskQueue& tasks_;
  std::deque<Delivery> waiting_;
  bool isDelivering_ = false;
  Lifetime lifetime_;
};

}  // namespace mirvane
