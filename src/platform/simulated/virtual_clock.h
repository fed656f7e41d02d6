#pragma once

#include "platform/clock.h"

namespace mirvane::simulated {

/// A clock that stands still until it is moved. The date-time, the monotonic time and the uptime
/// run together.
class VirtualClock : public Clock {
 public:
  /// What a fresh clock shows: 2026-01-01T00:00:00Z, an hour after the system's start.
  static constexpr DateTime defaultStart{std::chrono::seconds{1767225600}};
  static constexpr double defaultMonotonicSeconds = 3600;

  explicit VirtualClock(DateTime start = defaultStart,
                        double monotonicSeconds = defaultMonotonicSeconds);

  [[nodiscard]] DateTime now() const override;
  [[nodiscard]] double monotonicSeconds() const override { return monotonic_; }
  [[nodiscard]] double uptimeSeconds() const override { return monotonic_ + slept_; }

  /// Declares what the date-time is at this moment; the monotonic time is not touched.
  void setNow(DateTime now);

  /// Declares what the monotonic time is at this moment; the date-time is not touched. For the
  /// start of a test or a recording.
  void setMonotonicSeconds(double seconds);

  void advance(double seconds) { advanceTo(monotonic_ + seconds); }

  /// The system sleeps: the monotonic time stands still.
  void sleep(double seconds);

  /// Lets time run until this monotonic time; an earlier one changes nothing.
  void advanceTo(double monotonicSeconds);

 private:
  /// The date-time that belongs to the monotonic time `origin_`.
  DateTime start_;
  double origin_;
  double monotonic_;
  double slept_ = 0;
};

}  // namespace mirvane::simulated
