#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/linux/x11/x_display.h"

namespace mirvane {

/// A window of some application, as the window manager and the window itself describe it.
struct DesktopWindow {
  std::uint64_t id = 0;
  int processId = 0;  ///< 0 when the window does not tell
  /// The application id where the window has one, else its class; absent when it has neither.
  std::optional<std::string> identifier;
  bool isOwn = false;  ///< of this process
  /// A terminal: what is typed there may be a password, and nobody can tell.
  bool isTerminal = false;

  bool operator==(const DesktopWindow&) const = default;
};

/// Whether a window class names a terminal emulator.
[[nodiscard]] bool isTerminalClass(const std::string& windowClass);

/// The window that the window manager calls active; absent while there is none.
[[nodiscard]] std::optional<DesktopWindow> activeWindow(_XDisplay* display);

/// The window that gets the keys; absent when no window has the focus.
[[nodiscard]] std::optional<DesktopWindow> focusedWindow(_XDisplay* display);

/// Whether it is this window that gets the keys.
[[nodiscard]] bool isFocused(_XDisplay* display, std::uint64_t window);

/// The top window under the pointer; absent over the bare desktop.
[[nodiscard]] std::optional<DesktopWindow> windowUnderPointer(_XDisplay* display);

}  // namespace mirvane
