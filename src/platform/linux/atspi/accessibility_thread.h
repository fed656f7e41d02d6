#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

struct _GMainContext;  // NOLINT(bugprone-reserved-identifier)

namespace mirvane {

/// The one thread that talks to other applications through AT-SPI. Programs that hang hold up this
/// thread for a moment, and nobody else.
///
/// Tasks run in the order in which they were posted. Calls, for whose answer somebody waits, go
/// before them, also while a task waits in `waitUntil`.
///
/// The thread runs GLib's default main context, to which libatspi ties its connections whatever
/// context it is given. No other thread may run that one: the program keeps the toolkit off it.
class AccessibilityThread {
 public:
  using Clock = std::chrono::steady_clock;

  AccessibilityThread();
  ~AccessibilityThread();
  AccessibilityThread(const AccessibilityThread&) = delete;
  AccessibilityThread& operator=(const AccessibilityThread&) = delete;

  /// Ends the thread once it has run `last`. What is still waiting is dropped, and so is what is
  /// posted later.
  void stop(std::function<void()> last = {});

  void post(std::function<void()> task);

  /// Runs `task` after `delay` or somewhat later, between other tasks.
  void postLater(std::function<void()> task, std::chrono::milliseconds delay);

  /// The answer of `question`, run on the thread; absent when it does not come within
  /// `longestWait` of the caller. A late question may still be run: what it uses must not belong
  /// to the caller.
  template <typename Answer>
  [[nodiscard]] std::optional<Answer> ask(std::function<Answer()> question,
                                          std::chrono::milliseconds longestWait) {
    struct Shared {
      std::mutex mutex;
      std::condition_variable isDone;
      std::optional<Answer> answer;
    };
    auto shared = std::make_shared<Shared>();
    call([shared, question = std::move(question)] {
      Answer answer = question();
      const std::lock_guard lock(shared->mutex);
      shared->answer = std::move(answer);
      shared->isDone.notify_one();
    });
    std::unique_lock lock(shared->mutex);
    shared->isDone.wait_for(lock, longestWait, [&] { return shared->answer.has_value(); });
    return std::move(shared->answer);
  }

  /// Whether tasks or calls wait for the one that runs now.
  [[nodiscard]] bool isWaitedFor() const;

  /// On the thread: whether the accessibility bus can be reached. Without it libatspi must not be
  /// asked for anything new: it would end the program.
  [[nodiscard]] bool hasBus();

  /// On the thread: lets events of the applications in until `condition` holds. False when it did
  /// not before `deadline`.
  bool waitUntil(const std::function<bool()>& condition, Clock::time_point deadline);

 private:
  void run();
  void call(std::function<void()> question);
  void add(std::function<void()> task, std::deque<std::function<void()>>& queue);
  void wakeUp();
  [[nodiscard]] std::function<void()> takeNext(bool onlyCalls);
  void runCalls();

  _GMainContext* context_;
  mutable std::mutex mutex_;
  std::deque<std::function<void()>> tasks_;
  std::deque<std::function<void()>> calls_;
  Clock::time_point askAgainForBus_{};
  std::function<void()> last_;
  bool isRunning_ = true;
  std::thread thread_;
};

}  // namespace mirvane
