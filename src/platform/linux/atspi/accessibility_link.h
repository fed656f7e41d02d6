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
  explicit AccessibilityLink(AccessibilityThread& thread) : thread_(thread) {}

  /// Until `endBudget` all questions together may take no longer than one may else.
  void beginBudget() { budgetEnd_ = Clock::now() + longestWait; }
  void endBudget() { budgetEnd_.reset(); }

  template <typename Answer>
  [[nodiscard]] std::optional<Answer> ask(std::function<Answer()> question) {
    const auto now = Clock::now();
    const auto deadline = budgetEnd_.value_or(now + longestWait);
    if (now < mutedUntil_ || now >= deadline) return std::nullopt;
    auto answer = thread_.ask<Answer>(std::move(question),
                                      std::chrono::ceil<std::chrono::milliseconds>(deadline - now));
    if (!answer) mutedUntil_ = Clock::now() + pause;
    return answer;
  }

  /// An application has answered after all.
  void unmute() { mutedUntil_ = {}; }

 private:
  using Clock = AccessibilityThread::Clock;
  static constexpr std::chrono::milliseconds longestWait{100};
  static constexpr std::chrono::milliseconds pause{1000};

  AccessibilityThread& thread_;
  Clock::time_point mutedUntil_{};
  std::optional<Clock::time_point> budgetEnd_;
};

}  // namespace mirvane
