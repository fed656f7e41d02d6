#pragma once

#include <cstdint>
#include <vector>

#include "platform/linux/x11/x_display.h"

namespace mirvane {

/// The desktop's keyboard settings as the X Keyboard Extension holds them. Times are ms.
struct KeyControls {
  bool isRepeatOn = false;
  double repeatDelay = 0;
  double repeatInterval = 1;
  std::vector<unsigned char> repeatingKeys;  ///< a bit for each scan code

  bool isSlowKeysOn = false;
  bool isBounceKeysOn = false;
  double bounceDelay = 0;  ///< after a release, during which the same key does not count

  [[nodiscard]] bool repeats(std::uint32_t scanCode) const;
};

/// All off when the server does not tell.
[[nodiscard]] KeyControls readKeyControls(_XDisplay* display);

}  // namespace mirvane
