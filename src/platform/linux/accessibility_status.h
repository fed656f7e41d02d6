#pragma once

#include <memory>
#include <optional>
#include <string>

namespace mirvane {

/// The desktop's accessibility switch: the property IsEnabled of org.a11y.Status on the session
/// bus (AT-SPI 2). To be used from the main thread; copies share what they know.
class AccessibilityStatus {
 public:
  /// Waits for the bus, for a fraction of a second at most.
  AccessibilityStatus();

  /// As of the last answer; absent when there is no session bus or no accessibility service on it.
  /// Asks anew without waiting: to be called repeatedly by those who want to keep up.
  [[nodiscard]] std::optional<bool> isEnabled() const;

  /// Switches accessibility on; waits like the constructor. Answers why that failed; absent when it
  /// worked.
  [[nodiscard]] std::optional<std::string> enable() const;

 private:
  struct Known {
    std::optional<bool> isEnabled;
    bool isAsking = false;
  };

  std::shared_ptr<Known> known_ = std::make_shared<Known>();
};

}  // namespace mirvane
