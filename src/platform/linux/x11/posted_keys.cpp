#include "platform/linux/x11/posted_keys.h"

namespace mirvane {

void PostedKeys::expect(const Key& key) {
  const std::lock_guard lock(mutex_);
  keys_.push_back(key);
}

std::optional<PostedKeys::Key> PostedKeys::take(std::uint32_t scanCode, bool isDown) {
  const std::lock_guard lock(mutex_);
  if (keys_.empty()) return std::nullopt;
  const Key next = keys_.front();
  if (next.scanCode != scanCode || next.isDown != isDown) return std::nullopt;
  keys_.pop_front();
  return next;
}

}  // namespace mirvane
