#pragma once

#include <optional>
#include <string>

namespace mirvane {

/// The desktop's accessibility switch: the property IsEnabled of org.a11y.Status on the session
/// bus (AT-SPI 2). Calls wait for the bus for a fraction of a second at most.
class AccessibilityStatus {
 public:
  /// Absent when there is no session bus or no accessibility service on it.
  [[nodiscard]] std::optional<bool> isEnabled() const;

  /// Switches accessibility on. Answers why that failed; absent when it worked.
  [[nodiscard]] std::optional<std::string> enable() const;
};

}  // namespace mirvane
