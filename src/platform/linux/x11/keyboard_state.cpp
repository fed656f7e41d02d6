#include "platform/linux/x11/keyboard_state.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>

#include <array>
#include <climits>

namespace mirvane {

bool askForReleasesOfStrokesOnly(_XDisplay* display) {
  Bool isSupported = False;
  return XkbSetDetectableAutoRepeat(display, True, &isSupported) == True && isSupported == True;
}

KeysDown keysDown(_XDisplay* display) {
  std::array<char, KeysDown().size() / CHAR_BIT> bytes{};
  XQueryKeymap(display, bytes.data());
  KeysDown keys;
  for (std::size_t key = 0; key < keys.size(); ++key) {
    const auto byte = static_cast<unsigned char>(bytes.at(key / CHAR_BIT));
    keys.set(key, (byte >> (key % CHAR_BIT) & 1U) != 0);
  }
  return keys;
}

}  // namespace mirvane
