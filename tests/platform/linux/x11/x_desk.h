#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "platform/linux/x11/keyboard_watch.h"
#include "platform/linux/x11/x_display.h"

namespace mirvane {

/// Scan codes, whatever the layout.
inline constexpr int keyA = 38, keyB = 56, keyC = 54, keyE = 26, keyQ = 24, keyW = 25, keyY = 29,
                     keyAcute = 21, keyApostrophe = 48;
inline constexpr int keyBackspace = 22, keyShift = 50, keyCapsLock = 66, keySpace = 65,
                     keyMenu = 135, keyMute = 121, keyBack = 166, keyBrightnessUp = 233;
inline constexpr int keyControl = 37, keyAlt = 64, keyAltGr = 108, keySuper = 133,
                     keyLevel3OfNeo = 51;

/// A press or release as the X server tells of it.
struct SeenKey {
  std::uint32_t scanCode = 0;
  bool isDown = true;
  double milliseconds = 0;

  bool operator==(const SeenKey&) const = default;
};
void PrintTo(const SeenKey& key, std::ostream* out);

/// What is held and locked.
struct KeyboardState {
  unsigned modifiers = 0;
  unsigned group = 0;
  std::array<char, 32> downKeys{};

  bool operator==(const KeyboardState&) const = default;
};

/// The keyboard on the desk of a real X server, another program that types there, and a field of an
/// application that has the focus. Throws without a server.
class XDesk {
 public:
  static constexpr int marker = 9;  ///< Escape, which `takeText` posts
  /// How long to wait for what must come.
  static constexpr std::chrono::seconds patience{30};

  XDesk();
  ~XDesk();
  XDesk(const XDesk&) = delete;
  XDesk& operator=(const XDesk&) = delete;

  /// As `setxkbmap` takes it, and which of several layouts is in use.
  void useLayout(const std::string& name, unsigned group = 0);
  /// For the hardware alone, as a layout that is set per device.
  void useHardwareLayout(const std::string& name) const;
  /// Leaves exactly these on: Slow Keys with a delay of 20 ms, Bounce Keys with the server's own.
  void filterKeys(bool isSlow, bool isBouncing);

  /// Hardware keys in order, those below zero come up. The server has taken them on return.
  void send(const std::vector<int>& keys);
  /// The same while others may have the server to themselves: it takes them as soon as it can.
  void sendSoon(const std::vector<int>& keys);
  /// The same from another program, over XTEST.
  void post(const std::vector<int>& keys);

  /// As `xinput disable` does, or a switch to another log-in.
  void setKeyboardEnabled(bool isEnabled);

  static constexpr unsigned leftButton = 1, wheelUp = 4;
  void click(unsigned button);

  /// The hardware's keys since the last call.
  [[nodiscard]] std::vector<SeenKey> takeSent();
  [[nodiscard]] KeyboardState state() const;
  /// The symbols of all keys.
  [[nodiscard]] std::vector<unsigned long> keyboardMap() const;
  /// Whether another program has the keyboard to itself from now on.
  void grabKeyboard(bool isGrabbed);

  [[nodiscard]] std::uint64_t field() const { return windows_[0]; }
  [[nodiscard]] std::uint64_t otherField() const { return windows_[1]; }
  void focus(std::uint64_t window);

  /// What the fields got since the last call, up to a key that is posted now. Key filters are off.
  /// `seesModifiers`: as an application that is late with them would not.
  [[nodiscard]] std::string takeText(bool seesModifiers = true);

 private:
  void fake(const std::vector<int>& keys, bool isHardware);
  [[nodiscard]] std::uint64_t openWindow() const;

  XDisplay hands_;
  XDisplay witness_;
  XDisplay application_;
  int keyboard_ = 0;  ///< the device id of the hardware
  void* device_ = nullptr;
  std::array<std::uint64_t, 2> windows_{};
};

/// The server has taken what was sent over this connection.
void sync(_XDisplay* display);

/// Runs `action` once, when so many calls of Xlib have been made with this connection; 0 forgets an
/// action that has not run. The action may ask for another.
void afterCalls(_XDisplay* display, int count, std::function<void()> action);

/// Hands over all events that the server has for the watch.
void deliverEvents(_XDisplay* display, KeyboardWatch& watch);

}  // namespace mirvane
