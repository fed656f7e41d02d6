#pragma once

#include "platform/linux/atspi/gobject_pointer.h"

namespace mirvane {

/// Asks the application; false when it does not answer.
inline bool hasState(AtspiAccessible* accessible, AtspiStateType state) {
  const GObjectPointer<AtspiStateSet> states(atspi_accessible_get_state_set(accessible));
  return states != nullptr && atspi_state_set_contains(states.get(), state) != FALSE;
}

}  // namespace mirvane
