#pragma once

#include <bitset>

#include "platform/linux/x11/x_display.h"

namespace mirvane {

/// One bit for each scan code.
using KeysDown = std::bitset<256>;

/// From now on a held key comes to this connection as presses and one release, when it is let go.
/// Without this every repeat comes with a release, which looks like that of a key struck again.
/// False where the server cannot do it.
[[nodiscard]] bool askForReleasesOfStrokesOnly(_XDisplay* display);

/// The keys that are down now; waits for the server's answer.
[[nodiscard]] KeysDown keysDown(_XDisplay* display);

}  // namespace mirvane
