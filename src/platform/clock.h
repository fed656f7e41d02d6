#pragma once

#include <chrono>

namespace mirvane {

class Clock {
 public:
  /// An absolute instant.
  using DateTime = std::chrono::system_clock::time_point;

  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  virtual ~Clock() = default;

  [[nodiscard]] virtual DateTime now() const = 0;

  /// Seconds since the system started, never going back: the time base of input events.
  [[nodiscard]] virtual double monotonicSeconds() const = 0;

  /// Seconds since the system started, those it slept through among them, never going back: for how
  /// long something has lasted, whoever sets the date meanwhile.
  [[nodiscard]] virtual double uptimeSeconds() const = 0;
};

}  // namespace mirvane
