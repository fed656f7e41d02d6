#include "platform/linux/x11/x_display.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>

#include <cstdlib>
#include <string_view>

namespace mirvane {
namespace {

bool isWaylandSession() {
  const char* const type = std::getenv("XDG_SESSION_TYPE");
  return std::getenv("WAYLAND_DISPLAY") != nullptr ||
         (type != nullptr && std::string_view(type) == "wayland");
}

/// Windows come and go while they are asked about; an answer that never comes is answer enough.
int ignoreError(Display*, XErrorEvent*) {
  return 0;
}

bool hasExtensions(Display* display) {
  int opcode = 0, event = 0, error = 0, major = 2, minor = 2;
  if (XQueryExtension(display, "XInputExtension", &opcode, &event, &error) == 0) return false;
  if (XIQueryVersion(display, &major, &minor) != Success) return false;
  if (XTestQueryExtension(display, &event, &error, &major, &minor) == 0) return false;
  int xkbMajor = XkbMajorVersion, xkbMinor = XkbMinorVersion;
  return XkbQueryExtension(display, &opcode, &event, &error, &xkbMajor, &xkbMinor) != 0;
}

}  // namespace

void XDisplayCloser::operator()(_XDisplay* display) const {
  XCloseDisplay(display);
}

XDisplay openXDisplay() {
  if (isWaylandSession()) return nullptr;
  XSetErrorHandler(ignoreError);
  XDisplay display(XOpenDisplay(nullptr));
  if (display == nullptr || !hasExtensions(display.get())) return nullptr;
  return display;
}

}  // namespace mirvane
