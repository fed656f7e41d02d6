#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

#include "platform/linux/x11/desktop_window.h"
#include "platform/linux/x11/keyboard_watch.h"

namespace mirvane {

/// One holding back of keys.
enum class KeyHold : std::uint64_t { none = 0 };

/// A key aimed at a window of another application.
struct DesktopKey {
  WatchedKey key;
  DesktopWindow window;
  /// The participant's next keys wait for `DesktopInput::giveBack`.
  KeyHold hold = KeyHold::none;
};

/// The keyboard, the pointer's buttons and the active window of the whole desktop, watched by a
/// thread of its own over connections of its own, so that a busy main thread delays nothing.
///
/// A key that ends a word holds the following ones back: none can come between that key and the
/// correction of the word. Whoever hears of it gives them back; the thread does it by itself before
/// a person would notice, should nobody do it.
class DesktopInput {
 public:
  /// All called on that thread, in the order of the events.
  struct Callbacks {
    std::function<void(const DesktopKey&)> onKey;
    /// A key that another program took for itself, nobody knows what for.
    std::function<void()> onKeyMissed;
    /// Seconds since the system started. Presses in own windows are not told.
    std::function<void(double timestamp)> onPointerDown;
    /// Another window became active; it may be an own one.
    std::function<void(const DesktopWindow&)> onActivated;
  };

  /// Null where keys cannot be watched: no X server, or Wayland.
  [[nodiscard]] static std::unique_ptr<DesktopInput> start(PostedKeys& posted, Callbacks callbacks);
  ~DesktopInput();
  DesktopInput(const DesktopInput&) = delete;
  DesktopInput& operator=(const DesktopInput&) = delete;

  /// Keys and pointer presses are told only while watching; activations always.
  void setWatching(bool isWatching);

  /// After a key that is holding others back; does nothing when that is over.
  void giveBack(KeyHold hold);

  /// Whether no key, and no click, has followed the key that began this hold. Of any thread.
  [[nodiscard]] bool isHolding(KeyHold hold) const;

  /// Goes on with this hold while `type` posts keys, and gives the participant's back afterwards,
  /// or before when that takes too long, or when a click or another program's key gets through:
  /// `timeLeft` tells, 0 when they have been given back. Called from any thread but this one;
  /// returns when all is done. False, and nothing is called, when the hold is over.
  using TimeLeft = std::function<std::chrono::milliseconds()>;
  bool withKeysHeldBack(KeyHold hold, const std::function<void(const TimeLeft& timeLeft)>& type);

 private:
  class Thread;
  explicit DesktopInput(std::unique_ptr<Thread> thread);

  std::unique_ptr<Thread> thread_;
};

}  // namespace mirvane
