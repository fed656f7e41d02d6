#include "platform/simulated/keyboard.h"

namespace mirvane::simulated {

void Keyboard::press(const KeyStroke& key, EventStamp stamp) {
  held_.reset();
  deliver(EventMask::keyDown, key, stamp);
}

void Keyboard::hold(const KeyStroke& key, AutomaticRepeat timing) {
  held_ = HeldKey{key, clock_.monotonicSeconds() + timing.delay, timing.interval};
  deliver(EventMask::keyDown, key, {});
}

void Keyboard::release(const KeyStroke& key, EventStamp stamp) {
  if (held_ && held_->key.keyCode == key.keyCode) held_.reset();
  deliver(EventMask::keyUp, key, stamp);
}

void Keyboard::flagsChanged(std::uint16_t keyCode, std::uint64_t modifierFlags, EventStamp stamp) {
  deliver(EventMask::flagsChanged, {keyCode, std::nullopt, modifierFlags}, stamp);
}

std::optional<double> Keyboard::nextRepeat() const {
  if (!held_) return std::nullopt;
  return held_->nextRepeat;
}

void Keyboard::repeatHeldKey() {
  if (!held_) return;
  held_->nextRepeat += held_->interval;
  deliver(EventMask::keyDown, held_->key, {});
}

void Keyboard::deliver(EventMask kind, const KeyStroke& key, EventStamp stamp) {
  dispatcher_.deliverKey({kind, key.keyCode, key.text, key.modifierFlags,
                          stamp.timestamp.value_or(clock_.monotonicSeconds()), std::nullopt});
}

}  // namespace mirvane::simulated
