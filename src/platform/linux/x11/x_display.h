#pragma once

#include <memory>

// Xlib's own names, which its macros and its clashes with the toolkit keep out of headers.
struct _XDisplay;  // NOLINT(bugprone-reserved-identifier)
union _XEvent;     // NOLINT(bugprone-reserved-identifier)

namespace mirvane {

struct XDisplayCloser {
  void operator()(_XDisplay* display) const;
};

/// A connection to the X server of its own. One thread at a time uses it.
using XDisplay = std::unique_ptr<_XDisplay, XDisplayCloser>;

/// Null when there is no X server, it lacks the extensions this system needs (XInput 2.2, XKB,
/// XTEST), or the desktop runs on Wayland: its X server sees only the applications that still use
/// it, and none of their keys reliably.
[[nodiscard]] XDisplay openXDisplay();

}  // namespace mirvane
