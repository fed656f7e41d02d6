#pragma once

#include <chrono>
#include <cstdint>

namespace mirvane {

inline constexpr double millisecondsPerSecond = 1000.0;

/// Milliseconds since the system started, which is the X server's clock too.
[[nodiscard]] inline double uptimeMilliseconds() {
  const auto uptime = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double, std::milli>(uptime).count();
}

/// The same for a time that the server gave lately: it keeps 32 bits and begins anew every 50 days.
[[nodiscard]] inline double uptimeOf(unsigned long serverTime) {
  const auto now = static_cast<std::int64_t>(uptimeMilliseconds());
  const auto age = static_cast<std::int32_t>(static_cast<std::uint32_t>(now) -
                                             static_cast<std::uint32_t>(serverTime));
  return static_cast<double>(now - age);
}

/// The same moment, of the clock behind `uptimeMilliseconds`.
[[nodiscard]] inline std::chrono::steady_clock::time_point timePoint(double uptimeMilliseconds) {
  using TimePoint = std::chrono::steady_clock::time_point;
  return TimePoint(std::chrono::duration_cast<TimePoint::duration>(
      std::chrono::duration<double, std::milli>(uptimeMilliseconds)));
}

}  // namespace mirvane
