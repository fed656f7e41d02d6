#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <utility>

#include "platform/linux/atspi/accessibility_thread.h"

namespace mirvane {

/// The main thread's questions to the accessibility thread. Once one was not answered in time none
/// is asked for a second: an application that hangs costs a participant one short wait, not one for
/// each question.
class AccessibilityLink {
 public:
  static constexpr std::chrono::milliseconds longestWait{100};

  explicit AccessibilityLink(AccessibilityThread& thread) : thread_(thread) {}

  template <typename Answer>
  [[nodiscard]] std::optional<Answer> ask(std::function<Answer()> question) {
    if (Clock::now() < mutedUntil_) return std::nullopt;
    auto answer = thread_.ask<Answer>(std::move(question), longestWait);
    if (!answer) mutedUntil_ = Clock::now() + pause;
    return answer;
  }

  /// An application has answered after all.
  void unmute() { mutedUntil_ = {}; }

 private:
  using Clock = AccessibilityThread::Clock;
  static constexpr std::chrono::milliseconds pause{1000};

  AccessibilityThread& thread_;
  Clock::time_point mutedUntil_{};
};

}  // namespace mirvane
