#include "platform/linux/x11/key_filters.h"

namespace mirvane {

void KeyFilters::setSettings(const Settings& settings) {
  settings_ = settings;
  lastRelease_.reset();
}

bool KeyFilters::press(std::uint32_t scanCode, double time) {
  if (settings_.isSlowKeysOn || bounces(scanCode, time)) return false;
  held_.insert(scanCode);
  return true;
}

bool KeyFilters::release(std::uint32_t scanCode, double time) {
  lastRelease_ = Release{scanCode, time};
  // A key pressed before watching began has a release all the same; whoever has no press for it
  // lets it pass by.
  return held_.erase(scanCode) > 0;
}

bool KeyFilters::bounces(std::uint32_t scanCode, double time) const {
  return settings_.isBounceKeysOn && lastRelease_ && lastRelease_->scanCode == scanCode &&
         time - lastRelease_->time < settings_.bounceDelay;
}

}  // namespace mirvane
