#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/keystroke_records.h"

namespace mirvane {

/// Finds runs of one key pressed several times in quick succession, as a tremor gives them.
struct RepeatKeyDetector {
  double maxInputGap = 140.0;  ///< ms; a pair continues a run only below this
  std::int64_t minimumRepeatCount = 2;

  /// The runs among the first `count` events of the list (all of them when it is shorter), by
  /// ascending position. The gap tested for a pair is the one its later element in list order
  /// carries. Runs do not overlap.
  [[nodiscard]] std::vector<RepeatedKey> detect(const KeyEventList& events,
                                                std::size_t count = SIZE_MAX) const;
};

}  // namespace mirvane
