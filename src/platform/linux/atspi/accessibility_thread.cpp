#include "platform/linux/atspi/accessibility_thread.h"

#include <atspi/atspi.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace mirvane {
namespace {

/// How long one question to an application may take; whoever waits on the main thread gives up
/// sooner.
constexpr int longestCall = 200;  // ms

constexpr std::chrono::seconds pauseWithoutBus{5};

gboolean runTask(gpointer task) {
  (*static_cast<const std::function<void()>*>(task))();
  return G_SOURCE_REMOVE;
}

void deleteTask(gpointer task) {
  delete static_cast<const std::function<void()>*>(task);
}

gboolean stopWaiting(gpointer) {
  return G_SOURCE_REMOVE;
}

}  // namespace

AccessibilityThread::AccessibilityThread()
    : context_(g_main_context_ref(g_main_context_default())) {
  thread_ = std::thread([this] { run(); });
}

AccessibilityThread::~AccessibilityThread() {
  stop();
  g_main_context_unref(context_);
}

void AccessibilityThread::stop(std::function<void()> last) {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    last_ = std::move(last);
    isRunning_ = false;
  }
  wakeUp();
  thread_.join();
  // What the dropped ones hold may want to post in its turn, which does nothing any more.
  decltype(tasks_) dropped;
  {
    const std::lock_guard lock(mutex_);
    dropped.swap(tasks_);
    std::move(calls_.begin(), calls_.end(), std::back_inserter(dropped));
    calls_.clear();
  }
}

bool AccessibilityThread::isWaitedFor() const {
  const std::lock_guard lock(mutex_);
  return !tasks_.empty() || !calls_.empty();
}

bool AccessibilityThread::hasBus() {
  if (Clock::now() < askAgainForBus_) return false;
  const bool isThere = atspi_get_a11y_bus() != nullptr;
  if (!isThere) askAgainForBus_ = Clock::now() + pauseWithoutBus;
  return isThere;
}

void AccessibilityThread::wakeUp() {
  g_main_context_wakeup(context_);
}

void AccessibilityThread::add(std::function<void()> task,
                              std::deque<std::function<void()>>& queue) {
  {
    const std::lock_guard lock(mutex_);
    if (!isRunning_) return;
    queue.push_back(std::move(task));
  }
  wakeUp();
}

void AccessibilityThread::post(std::function<void()> task) {
  add(std::move(task), tasks_);
}

void AccessibilityThread::postLater(std::function<void()> task, std::chrono::milliseconds delay) {
  GSource* const timer = g_timeout_source_new(static_cast<guint>(delay.count()));
  g_source_set_callback(timer, runTask, new std::function<void()>(std::move(task)), deleteTask);
  g_source_attach(timer, context_);
  g_source_unref(timer);
}

void AccessibilityThread::call(std::function<void()> question) {
  add(std::move(question), calls_);
}

std::function<void()> AccessibilityThread::takeNext(bool onlyCalls) {
  const std::lock_guard lock(mutex_);
  auto& queue = !calls_.empty() || onlyCalls ? calls_ : tasks_;
  if (queue.empty()) return {};
  auto next = std::move(queue.front());
  queue.pop_front();
  return next;
}

void AccessibilityThread::runCalls() {
  while (const auto question = takeNext(true)) question();
}

void AccessibilityThread::run() {
  atspi_init();
  atspi_set_timeout(longestCall, longestCall);
  const auto isRunning = [this] {
    const std::lock_guard lock(mutex_);
    return isRunning_;
  };
  while (isRunning()) {
    if (const auto next = takeNext(false)) {
      next();
      while (g_main_context_iteration(context_, FALSE) != FALSE && !isWaitedFor()) {
      }
    } else {
      g_main_context_iteration(context_, TRUE);
    }
  }
  if (last_) last_();
  atspi_exit();
}

bool AccessibilityThread::waitUntil(const std::function<bool()>& condition,
                                    Clock::time_point deadline) {
  while (!condition()) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0) return false;
    GSource* const timer = g_timeout_source_new(static_cast<guint>(left));
    g_source_set_callback(timer, stopWaiting, nullptr, nullptr);
    g_source_attach(timer, context_);
    g_main_context_iteration(context_, TRUE);
    g_source_destroy(timer);
    g_source_unref(timer);
    runCalls();
  }
  return true;
}

}  // namespace mirvane
