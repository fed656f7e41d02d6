#pragma once

#include "platform/linux/accessibility_status.h"

namespace mirvane {

/// Asks the user whether the application may use accessibility and, on yes, switches it on. Where
/// that cannot be done the dialog says why. Returns at once; a second call while the dialog is
/// open brings it to the front.
void showTrustDialog(const AccessibilityStatus& status);

}  // namespace mirvane
