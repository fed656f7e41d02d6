#pragma once

#include "platform/linux/atspi/gobject_pointer.h"

namespace mirvane {

/// Asks the application; null when it does not answer.
[[nodiscard]] inline GObjectPointer<AtspiStateSet> statesOf(AtspiAccessible* accessible) {
  return GObjectPointer<AtspiStateSet>(atspi_accessible_get_state_set(accessible));
}

/// False when nothing is known of the states.
[[nodiscard]] inline bool hasState(const GObjectPointer<AtspiStateSet>& states,
                                   AtspiStateType state) {
  return states != nullptr && atspi_state_set_contains(states.get(), state) != FALSE;
}

/// Asks the application; false when it does not answer.
[[nodiscard]] inline bool hasState(AtspiAccessible* accessible, AtspiStateType state) {
  return hasState(statesOf(accessible), state);
}

}  // namespace mirvane
