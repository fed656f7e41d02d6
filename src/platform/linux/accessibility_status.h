#pragma once

#include <QDBusReply>
#include <QDBusVariant>
#include <memory>
#include <optional>
#include <string>

namespace mirvane {

/// The desktop's accessibility switch: the property IsEnabled of org.a11y.Status on the session
/// bus (AT-SPI 2). Copies share what they know.
class AccessibilityStatus {
 public:
  /// Waits for the bus, for a fraction of a second at most.
  AccessibilityStatus();

  /// Absent when there is no session bus or no accessibility service on it. The last answer, when
  /// none comes within 50 ms.
  [[nodiscard]] std::optional<bool> isEnabled() const;

  /// Switches accessibility on; waits like the constructor. Answers why that failed; absent when it
  /// worked.
  [[nodiscard]] std::optional<std::string> enable() const;

 private:
  void note(const QDBusReply<QDBusVariant>& reply) const;

  std::shared_ptr<std::optional<bool>> known_ = std::make_shared<std::optional<bool>>();
};

}  // namespace mirvane
