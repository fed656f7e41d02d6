#include "platform/simulated/virtual_clock.h"

#include <algorithm>
#include <chrono>

namespace mirvane::simulated {

VirtualClock::VirtualClock(DateTime start, double monotonicSeconds)
    : start_(start), origin_(monotonicSeconds), monotonic_(monotonicSeconds) {}

Clock::DateTime VirtualClock::now() const {
  const std::chrono::duration<double> passed(monotonic_ - origin_);
  return start_ + std::chrono::round<DateTime::duration>(passed);
}

void VirtualClock::setNow(DateTime now) {
  start_ = now;
  origin_ = monotonic_;
}

void VirtualClock::setMonotonicSeconds(double seconds) {
  start_ = now();
  origin_ = seconds;
  monotonic_ = seconds;
}

void VirtualClock::sleep(double seconds) {
  slept_ += seconds;
  start_ += std::chrono::round<DateTime::duration>(std::chrono::duration<double>(seconds));
}

void VirtualClock::advanceTo(double monotonicSeconds) {
  monotonic_ = std::max(monotonic_, monotonicSeconds);
}

}  // namespace mirvane::simulated
