#include "platform/linux/delivery_queue.h"

#include <utility>

namespace mirvane {

void DeliveryQueue::add(Delivery delivery) {
  waiting_.push_back(std::move(delivery));
  if (!isDelivering_) next();
}

void DeliveryQueue::next() {
  if (waiting_.empty()) return;
  isDelivering_ = true;
  waiting_.front().begin();
  // Behind what the handlers have queued.
  tasks_.post(lifetime_.guard([this] { finish(); }));
}

void DeliveryQueue::finish() {
  const auto done = std::move(waiting_.front());
  waiting_.pop_front();
  done.end();
  isDelivering_ = false;
  next();
}

}  // namespace mirvane
