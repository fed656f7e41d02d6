#include "platform/linux/x11/posted_keys.h"

#include <algorithm>

namespace mirvane {
namespace {

/// Keys come back within a few ms.
constexpr std::chrono::milliseconds longestWay{500};
/// How many keys that do not come back, or not yet, are looked past.
constexpr std::ptrdiff_t mostPassedOver = 2;

}  // namespace

void PostedKeys::expect(const Key& key, Clock::time_point now) {
  const std::lock_guard lock(mutex_);
  keys_.push_back({key, now});
}

std::optional<PostedKeys::Key> PostedKeys::take(std::uint32_t scanCode, bool isDown,
                                                Clock::time_point time) {
  const std::lock_guard lock(mutex_);
  while (!keys_.empty() && time - keys_.front().since > longestWay) keys_.pop_front();
  const auto last =
      keys_.begin() + std::min(static_cast<std::ptrdiff_t>(keys_.size()), mostPassedOver + 1);
  const auto found = std::find_if(keys_.begin(), last, [&](const Expected& expected) {
    return expected.key.scanCode == scanCode && expected.key.isDown == isDown;
  });
  if (found == last) return std::nullopt;
  const Key key = found->key;
  keys_.erase(found);
  return key;
}

}  // namespace mirvane
