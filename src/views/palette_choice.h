#pragma once

#include <QPalette>
#include <optional>

#include "platform/appearance.h"

namespace mirvane {

/// The palette of the study where the desktop's own is not what the user wants: dark or light, or
/// of high contrast. Absent where the desktop's own is to be used, which is always so while the
/// user has no preference.
[[nodiscard]] std::optional<QPalette> chosenPalette(const QPalette& desktop,
                                                    const Appearance& wanted);

}  // namespace mirvane
