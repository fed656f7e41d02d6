#include "platform/linux/x11/desktop_input.h"

#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <condition_variable>
#include <deque>
#include <future>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/linux/x11/keyboard_hold.h"
#include "platform/linux/x11/server_clock.h"
#include "platform/linux/x11/x_display.h"
#include "text/word_boundaries.h"

namespace mirvane {
namespace {

/// The longest time for which keys wait when nobody gives them back.
constexpr double longestHold = 250.0;  // ms
/// The same while text is typed into an application, which may hang meanwhile.
constexpr double longestTyping = 600.0;  // ms

bool endsWord(const WatchedKey& key) {
  return key.isDown && key.text && text::isBoundaryKeyText(*key.text);
}

}  // namespace

class DesktopInput::Thread {
 public:
  Thread(XDisplay display, XDisplay holdDisplay, PostedKeys& posted, Callbacks callbacks)
      : callbacks_(std::move(callbacks)),
        display_(std::move(display)),
        wakeUp_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
        hold_(std::move(holdDisplay), posted),
        watch_(display_.get(), posted,
               {[this](const WatchedKey& key) { handleKey(key); },
                [this](std::uint32_t scanCode) { hold_.noteRelease(scanCode); },
                [this] { noteKeyboardsChanged(); }}) {
    XSelectInput(display_.get(), DefaultRootWindow(display_.get()), PropertyChangeMask);
    activeWindowAtom_ = XInternAtom(display_.get(), "_NET_ACTIVE_WINDOW", False);
    thread_ = std::thread([this] { run(); });
  }

  ~Thread() {
    post([this] { isRunning_ = false; });
    thread_.join();
    close(wakeUp_);
  }

  Thread(const Thread&) = delete;
  Thread& operator=(const Thread&) = delete;

  void setWatching(bool isWatching) { isWatching_ = isWatching; }

  void post(std::function<void()> command) {
    {
      const std::lock_guard lock(mutex_);
      commands_.push_back(std::move(command));
    }
    constexpr std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(wakeUp_, &one, sizeof one);
  }

  void runAndWait(std::function<void()> command) {
    std::promise<void> done;
    post([&] {
      command();
      done.set_value();
    });
    done.get_future().wait();
  }

  [[nodiscard]] bool isHolding(KeyHold hold) const {
    return hold != KeyHold::none && current_ == hold;
  }

  bool holdBackForTyping(KeyHold hold) {
    if (!isHolding(hold)) return false;
    hold_.holdBack();
    typingEnd_ = uptimeMilliseconds() + longestTyping;
    if (const auto repeating = watch_.stopRepeating()) hold_.endRepeat(*repeating);
    return true;
  }

  void endHoldForTyping() {
    // First of all: who types is to know before the keys come out.
    if (typingEnd_.exchange(0) > 0) hold_.giveBack(heldWindow_);
  }

  [[nodiscard]] std::chrono::milliseconds timeLeftForTyping() const {
    const double left = typingEnd_ - uptimeMilliseconds();
    return std::chrono::milliseconds(static_cast<std::int64_t>(std::max(0.0, std::ceil(left))));
  }

  void endHold(KeyHold hold) {
    if (isHolding(hold)) endHold();
  }

 private:
  void run() {
    announceActiveWindow();
    while (isRunning_) {
      waitForWork();
      handleEvents();
      runCommands();
      const double now = uptimeMilliseconds();
      watch_.reportDueRepeats(now);
      if (holdingEnd_ && now > *holdingEnd_) endHold();
      if (typingEnd_ > 0 && now > typingEnd_) endHoldForTyping();
    }
    endHolds();
  }

  void waitForWork() {
    if (XPending(display_.get()) > 0) return;
    std::array<pollfd, 2> sources{
        {{ConnectionNumber(display_.get()), POLLIN, 0}, {wakeUp_, POLLIN, 0}}};
    poll(sources.data(), sources.size(), millisecondsToNextDeadline());
    std::uint64_t count = 0;
    [[maybe_unused]] const auto bytes = read(wakeUp_, &count, sizeof count);
  }

  /// -1 when nothing is due.
  [[nodiscard]] int millisecondsToNextDeadline() const {
    auto due = watch_.repeatDueTime();
    const auto consider = [&](double end) { due = std::min(due.value_or(end), end); };
    if (holdingEnd_) consider(*holdingEnd_);
    if (const double end = typingEnd_; end > 0) consider(end);
    if (!due) return -1;
    const double left = std::ceil(*due - uptimeMilliseconds());
    return static_cast<int>(std::clamp(left, 0.0, longestHold));
  }

  void runCommands() {
    std::deque<std::function<void()>> commands;
    {
      const std::lock_guard lock(mutex_);
      commands.swap(commands_);
    }
    for (const auto& command : commands) command();
  }

  void handleEvents() {
    while (XPending(display_.get()) > 0) {
      XEvent event;
      XNextEvent(display_.get(), &event);
      if (watch_.handle(event)) continue;
      if (event.type == PropertyNotify && event.xproperty.atom == activeWindowAtom_) {
        announceActiveWindow();
      } else if (event.type == GenericEvent) {
        handlePointer(event.xcookie);
      }
    }
  }

  void announceActiveWindow() {
    const auto window = activeWindow(display_.get());
    // The window manager clears the property for a moment in between, and sets it repeatedly.
    if (!window || window->id == activeWindowId_) return;
    activeWindowId_ = window->id;
    watch_.stopRepeating();
    if (isHoldingKeys() && !isFocused(display_.get(), heldWindow_)) endHolds();
    callbacks_.onActivated(*window);
  }

  void noteKeyboardsChanged() {
    watch_.stopRepeating();
    hold_.noteKeyboardsChanged();
  }

  void handlePointer(XGenericEventCookie& cookie) {
    const bool isButton = cookie.evtype == XI_RawButtonPress;
    if (!isButton && cookie.evtype != XI_RawTouchBegin) return;
    if (XGetEventData(display_.get(), &cookie) == 0) return;
    const auto& press = *static_cast<const XIRawEvent*>(cookie.data);
    constexpr int firstWheelButton = 4, lastWheelButton = 7;
    const bool isWheel =
        isButton && press.detail >= firstWheelButton && press.detail <= lastWheelButton;
    if (!isWheel) handlePress(uptimeOf(press.time) / millisecondsPerSecond, isButton);
    XFreeEventData(display_.get(), &cookie);
  }

  void handlePress(double timestamp, bool isButton) {
    // It may put the caret elsewhere, where nothing is to be typed or deleted.
    endHolds();
    // A touch need not take the pointer along.
    const auto isInOwnWindow = [&] { return isButton && isPointerInOwnWindow(); };
    if (isWatching_ && !isInOwnWindow()) callbacks_.onPointerDown(timestamp);
  }

  [[nodiscard]] bool isPointerInOwnWindow() const {
    const auto window = windowUnderPointer(display_.get());
    return window && window->isOwn;
  }

  void handleKey(const WatchedKey& key) {
    if (!isWatching_) return;
    if (!key.text && key.isApartFromTyping) return;
    const auto window = focusedWindow(display_.get());
    // Own windows report their keys themselves.
    if (!window || window->isOwn) {
      watch_.stopRepeating();
      return;
    }
    // Releases tell nothing that is typed.
    if (key.isDown && hold_.isKeyboardTaken()) {
      callbacks_.onKeyMissed();
      return;
    }
    // Not all keys can be held: an on-screen keyboard's go on.
    if (key.isDown) endHolds();
    // The release of a key that repeats must not be held.
    const bool mayHold = endsWord(key) && !key.isRepeat && !window->isTerminal;
    callbacks_.onKey({key, *window, mayHold ? startHold(window->id) : KeyHold::none});
  }

  KeyHold startHold(std::uint64_t window) {
    hold_.holdBack();
    watch_.shareLayout();
    heldWindow_ = window;
    holdingEnd_ = uptimeMilliseconds() + longestHold;
    current_ = KeyHold{++lastHold_};
    return current_;
  }

  void endHold() {
    current_ = KeyHold::none;
    if (holdingEnd_) hold_.giveBack(heldWindow_);
    holdingEnd_.reset();
  }

  void endHolds() {
    endHoldForTyping();
    endHold();
  }

  [[nodiscard]] bool isHoldingKeys() const { return holdingEnd_ || typingEnd_ > 0; }

  Callbacks callbacks_;
  XDisplay display_;
  int wakeUp_;
  KeyboardHold hold_;
  KeyboardWatch watch_;
  unsigned long activeWindowAtom_ = 0;
  std::uint64_t activeWindowId_ = 0;
  std::atomic<KeyHold> current_ = KeyHold::none;
  std::uint64_t lastHold_ = 0;
  /// The window that the keys held back were typed in.
  std::uint64_t heldWindow_ = 0;
  std::optional<double> holdingEnd_;   ///< ms; for the sake of a key that ends a word
  std::atomic<double> typingEnd_ = 0;  ///< ms; while text is typed, else 0
  std::atomic<bool> isWatching_ = false;
  bool isRunning_ = true;
  std::mutex mutex_;
  std::deque<std::function<void()>> commands_;
  std::thread thread_;
};

std::unique_ptr<DesktopInput> DesktopInput::start(PostedKeys& posted, Callbacks callbacks) {
  auto display = openXDisplay();
  auto holdDisplay = openXDisplay();
  if (display == nullptr || holdDisplay == nullptr) return nullptr;
  return std::unique_ptr<DesktopInput>(new DesktopInput(std::make_unique<Thread>(
      std::move(display), std::move(holdDisplay), posted, std::move(callbacks))));
}

DesktopInput::DesktopInput(std::unique_ptr<Thread> thread) : thread_(std::move(thread)) {}

DesktopInput::~DesktopInput() = default;

void DesktopInput::setWatching(bool isWatching) {
  thread_->setWatching(isWatching);
}

void DesktopInput::giveBack(KeyHold hold) {
  thread_->post([this, hold] { thread_->endHold(hold); });
}

bool DesktopInput::isHolding(KeyHold hold) const {
  return thread_->isHolding(hold);
}

bool DesktopInput::withKeysHeldBack(KeyHold hold,
                                    const std::function<void(const TimeLeft& timeLeft)>& type) {
  bool isHeld = false;
  thread_->runAndWait([&] { isHeld = thread_->holdBackForTyping(hold); });
  if (!isHeld) return false;
  type([this] { return thread_->timeLeftForTyping(); });
  thread_->runAndWait([this] { thread_->endHoldForTyping(); });
  return true;
}

}  // namespace mirvane
