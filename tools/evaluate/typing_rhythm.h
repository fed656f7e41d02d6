#pragma once

#include "platform/simulated/key_layout.h"

namespace mirvane {

/// Seconds from one press to the next in evaluations: a key struck again comes quickly, as from a
/// trembling hand.
[[nodiscard]] inline double gapBefore(const simulated::KeyStroke& key,
                                      const simulated::KeyStroke& previous) {
  constexpr double usualGap = 0.18, repeatedKeyGap = 0.06;
  const bool isSameKey = key.keyCode == previous.keyCode && key.text == previous.text;
  return isSameKey ? repeatedKeyGap : usualGap;
}

}  // namespace mirvane
