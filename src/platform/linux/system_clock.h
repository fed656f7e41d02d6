#pragma once

#include <time.h>

#include <chrono>

#include "platform/clock.h"

namespace mirvane {

/// The machine's clocks. The monotonic one is the one X11 stamps its events with.
class SystemClock : public Clock {
 public:
  [[nodiscard]] DateTime now() const override { return std::chrono::system_clock::now(); }

  [[nodiscard]] double monotonicSeconds() const override {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
  }

  [[nodiscard]] double uptimeSeconds() const override {
    timespec uptime{};
    clock_gettime(CLOCK_BOOTTIME, &uptime);
    using std::chrono::nanoseconds, std::chrono::seconds;
    return std::chrono::duration<double>(seconds(uptime.tv_sec) + nanoseconds(uptime.tv_nsec))
        .count();
  }
};

}  // namespace mirvane
