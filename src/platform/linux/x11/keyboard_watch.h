#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>

#include "platform/linux/x11/auto_repeat.h"
#include "platform/linux/x11/key_filters.h"
#include "platform/linux/x11/keyboard_text.h"
#include "platform/linux/x11/posted_keys.h"
#include "platform/linux/x11/x_display.h"

namespace mirvane {

/// A press or release of the participant somewhere on the desktop, automatic repeats included.
struct WatchedKey {
  std::uint32_t scanCode = 0;
  bool isDown = true;
  std::optional<std::string> text;
  std::uint64_t modifierFlags = 0;
  double timestamp = 0;  ///< seconds since the system started
  /// The same for when the application got it: later for a key that was held back.
  double deliveredAt = 0;
  bool isRepeat = false;  ///< as the keyboard's settings have it: nobody tells of the real ones
  /// It changes what other keys type, or works the machine.
  bool isApartFromTyping = false;
};

/// Turns the X server's raw keyboard events into typing: with text, automatic repeat, and without
/// the presses that the desktop's key filters swallow and the keys that this system types itself.
class KeyboardWatch {
 public:
  struct Callbacks {
    std::function<void(const WatchedKey&)> onKey;
    /// A key of the hardware came up, whether or not that is typing.
    std::function<void(std::uint32_t scanCode)> onHardwareRelease;
    std::function<void()> onKeyboardsChanged;
  };

  /// `display` and `posted` outlive this object; events of the display go through `handle`.
  KeyboardWatch(_XDisplay* display, PostedKeys& posted, Callbacks callbacks);

  /// Takes an event of the display; false when it is none of the keyboard's.
  bool handle(_XEvent& event);

  /// Before anything is typed over XTEST for the sake of a key of the hardware: gives XTEST's
  /// keyboards the layout of the keyboard that was typed on last.
  void shareLayout();

  /// When the next repeat of a held key is due, `uptimeMilliseconds`.
  [[nodiscard]] std::optional<double> repeatDueTime() const { return repeat_.dueTime(); }
  void reportDueRepeats(double now);

  /// What is held down now no longer types where it did.
  std::optional<std::uint32_t> stopRepeating() { return repeat_.stop(); }

 private:
  /// Times are `uptimeMilliseconds`.
  struct Key {
    std::uint32_t scanCode = 0;
    bool isDown = true;
    double pressedAt = 0;
    double deliveredAt = 0;
  };

  void selectEvents();
  void reloadControls();
  void reloadKeyboards();
  bool handleXkb(const _XEvent& event);
  void handleInput(_XEvent& event);
  void handleRaw(int device, std::uint32_t scanCode, bool isDown, double milliseconds);
  void handlePosted(const PostedKeys::Key& key, double milliseconds);
  void handleKey(const Key& key);
  void press(const Key& key);
  void report(const Key& key, std::optional<std::string> text, bool isRepeat = false);

  _XDisplay* display_;
  PostedKeys& posted_;
  Callbacks callbacks_;
  int inputOpcode_ = 0;
  int xkbEventBase_ = 0;
  std::set<int> syntheticKeyboards_;  ///< XTEST keyboards, by device id
  std::set<std::uint32_t> ownDown_;   ///< keys of our own that are down
  std::optional<int> lastHardware_;   ///< the keyboard that was typed on last, by device id
  bool isLayoutShared_ = false;       ///< XTEST's keyboards are known to have its layout
  KeyboardText text_;
  AutoRepeat repeat_;
  KeyFilters filters_;
};

}  // namespace mirvane
