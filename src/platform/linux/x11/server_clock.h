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

/// The whole of a time that the server gave lately: it keeps 32 bits of its milliseconds and begins
/// anew every 50 days. The answer lies within 25 days of `nowMilliseconds`.
[[nodiscard]] inline double wholeServerTime(std::uint64_t serverTime, double nowMilliseconds) {
  const auto now = static_cast<std::int64_t>(nowMilliseconds);
  const auto age = static_cast<std::int32_t>(static_cast<std::uint32_t>(now) -
                                             static_cast<std::uint32_t>(serverTime));
  return static_cast<double>(now - age);
}

/// The same by the machine's own clock.
[[nodiscard]] inline double uptimeOf(std::uint64_t serverTime) {
  return wholeServerTime(serverTime, uptimeMilliseconds());
}

/// The same moment, of the clock behind `uptimeMilliseconds`.
[[nodiscard]] inline std::chrono::steady_clock::time_point timePoint(double uptimeMilliseconds) {
  using TimePoint = std::chrono::steady_clock::time_point;
  return TimePoint(std::chrono::duration_cast<TimePoint::duration>(
      std::chrono::duration<double, std::milli>(uptimeMilliseconds)));
}

}  // namespace mirvane
