#pragma once

#include "platform/linux/x11/x_display.h"

namespace mirvane {

/// Gives the keyboards of XTEST the layout of the hardware's `keyboard` (a device id), where they
/// have another: a layout that was set for one keyboard only leaves them with the server's own, and
/// what is typed through them would come out in that. They keep it. Layouts that differ in the
/// types or actions of keys alone count as the same. Does nothing when the server does not answer.
void shareLayoutOf(int keyboard, _XDisplay* display);

}  // namespace mirvane
