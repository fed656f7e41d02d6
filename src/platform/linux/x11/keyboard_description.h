#pragma once

#include <X11/XKBlib.h>

#include <memory>

namespace mirvane {

struct KeyboardDescriptionDeleter {
  void operator()(XkbDescPtr keyboard) const {
    XkbFreeKeyboard(keyboard, XkbAllComponentsMask, True);
  }
};

/// What XKB says of a keyboard: its map, its controls, or both. For sources alone: Xlib's macros
/// come with it.
using KeyboardDescription = std::unique_ptr<XkbDescRec, KeyboardDescriptionDeleter>;

}  // namespace mirvane
