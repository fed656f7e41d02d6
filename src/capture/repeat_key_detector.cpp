#include "capture/repeat_key_detector.h"

#include <algorithm>

#include "platform/key_codes.h"
#include "text/canonical.h"

namespace mirvane {
namespace {

/// Shift does not block: a key whose text changed with it is still the same key.
constexpr std::uint64_t blockingModifiers =
    modifier::capsLock | modifier::control | modifier::option | modifier::command;

bool isSameRun(const KeyEvent& a, const KeyEvent& b, double maxInputGap) {
  if (!b.inputGap || !(*b.inputGap < maxInputGap)) return false;
  if (((a.modifierFlags | b.modifierFlags) & blockingModifiers) != 0) return false;
  return a.keyCode == b.keyCode || text::canonicallyEqual(a.inputText, b.inputText);
}

}  // namespace

std::vector<RepeatedKey> RepeatKeyDetector::detect(const KeyEventList& events,
                                                   std::size_t count) const {
  std::vector<RepeatedKey> runs;
  const std::size_t size = std::min(events.size(), count);
  if (size < 2) return runs;
  std::size_t start = 0;
  const auto report = [&](std::size_t end) {
    const auto length = static_cast<std::int64_t>(end - start + 1);
    if (length < minimumRepeatCount) return;
    runs.push_back({makeUuid(), events[start].inputText, static_cast<std::int64_t>(start),
                    static_cast<std::int64_t>(end), length});
  };
  for (std::size_t i = 0; i + 1 < size; ++i) {
    if (isSameRun(events[i], events[i + 1], maxInputGap)) continue;
    report(i);
    start = i + 1;
  }
  report(size - 1);
  return runs;
}

}  // namespace mirvane
