#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace mirvane {

/// The main thread's queue. Tasks run one after the other, in the order they were posted, never
/// inside `post`.
class TaskQueue {
 public:
  TaskQueue() = default;
  TaskQueue(const TaskQueue&) = delete;
  TaskQueue& operator=(const TaskQueue&) = delete;
  virtual ~TaskQueue() = default;

  virtual void post(std::function<void()> task) = 0;
};

/// A member by which an object lets tasks find out whether it still exists.
class Lifetime {
 public:
  Lifetime() = default;
  Lifetime(const Lifetime&) = delete;
  Lifetime& operator=(const Lifetime&) = delete;
  ~Lifetime() = default;

  /// `action`, wrapped so that it does nothing once this lifetime has ended.
  template <typename Action>
  [[nodiscard]] auto guard(Action action) const {
    return [alive = std::weak_ptr<const bool>(alive_), action = std::move(action)](auto&&... args) {
      if (!alive.expired()) action(std::forward<decltype(args)>(args)...);
    };
  }

 private:
  std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace mirvane
