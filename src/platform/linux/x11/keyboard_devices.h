#pragma once

#include <vector>

#include "platform/linux/x11/x_display.h"

namespace mirvane {

/// The keyboards behind the one that applications see, as device ids of the X server.

/// Those with keys of their own; without those that are held back just then.
[[nodiscard]] std::vector<int> hardwareKeyboards(_XDisplay* display);

/// Every device that is enabled, keyboards that are grabbed included.
[[nodiscard]] std::vector<int> enabledDevices(_XDisplay* display);

/// Those through which programs type over XTEST.
[[nodiscard]] std::vector<int> syntheticKeyboards(_XDisplay* display);

/// All of them, those held back too.
[[nodiscard]] std::vector<int> allKeyboards(_XDisplay* display);

}  // namespace mirvane
