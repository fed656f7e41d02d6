#pragma once

#include <atspi/atspi.h>

namespace mirvane {

/// Names the application that an element belongs to: its address on the bus, which no other
/// application ever has. The same pointer for the same name, valid for ever; null for an element
/// that has lost its application.
[[nodiscard]] inline const char* applicationName(AtspiAccessible* accessible) {
  const auto* const application = ATSPI_OBJECT(accessible)->app;
  return application != nullptr ? g_intern_string(application->bus_name) : nullptr;
}

}  // namespace mirvane
