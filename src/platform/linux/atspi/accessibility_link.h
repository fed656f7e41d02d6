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

  /// All questions until `endBudget`, those for a key, may take a tenth of a second together;
  /// other pieces of work, a click on a suggestion for one, 150 ms.
  void beginBudget() {
    isInBudget_ = true;
    budgetEnd_ = Clock::now() + longestKey;
  }
  void endBudget() {
    isInBudget_ = false;
    lastAnswer_ = {};
  }

  /// Whether a question would be put at all now.
  [[nodiscard]] bool isOpen() {
    const auto now = Clock::now();
    if (!isInBudget_ && now > lastAnswer_ + breath) budgetEnd_ = now + longestWork;
    return now >= mutedUntil_ && now < budgetEnd_;
  }

  template <typename Answer>
  [[nodiscard]] std::optional<Answer> ask(std::function<Answer()> question) {
    if (!isOpen()) return std::nullopt;
    const auto now = Clock::now();
    auto answer = thread_.ask<Answer>(
        std::move(question), std::chrono::ceil<std::chrono::milliseconds>(budgetEnd_ - now));
    lastAnswer_ = Clock::now();
    // One that had hardly any time left is no sign of a program that hangs.
    if (!answer && lastAnswer_ - now >= longestKey / 2) mutedUntil_ = lastAnswer_ + pause;
    return answer;
  }

  /// An application has answered after all.
  void unmute() { mutedUntil_ = {}; }

 private:
  using Clock = AccessibilityThread::Clock;
  static constexpr std::chrono::milliseconds longestKey{100};
  static constexpr std::chrono::milliseconds longestWork{150};
  static constexpr std::chrono::milliseconds pause{1000};
  /// Questions that follow each other sooner belong to one piece of work, which has one budget.
  static constexpr std::chrono::milliseconds breath{20};

  AccessibilityThread& thread_;
  Clock::time_point mutedUntil_{};
  bool isInBudget_ = false;
  Clock::time_point budgetEnd_{};
  Clock::time_point lastAnswer_{};
};

}  // namespace mirvane
