#include "platform/linux/x11/auto_repeat.h"

namespace mirvane {

void AutoRepeat::press(std::uint32_t scanCode, double time) {
  if (!settings_.repeats || !settings_.repeats(scanCode)) return;
  next_ = Press{scanCode, time + settings_.delay};
}

void AutoRepeat::release(std::uint32_t scanCode) {
  if (next_ && next_->scanCode == scanCode) next_.reset();
}

std::optional<std::uint32_t> AutoRepeat::stop() {
  if (!next_) return std::nullopt;
  const auto scanCode = next_->scanCode;
  next_.reset();
  return scanCode;
}

std::optional<double> AutoRepeat::dueTime() const {
  if (!next_) return std::nullopt;
  return next_->time;
}

std::optional<AutoRepeat::Press> AutoRepeat::takeDue(double now) {
  if (!next_ || next_->time > now) return std::nullopt;
  const Press due = *next_;
  next_->time += settings_.interval;
  return due;
}

}  // namespace mirvane
