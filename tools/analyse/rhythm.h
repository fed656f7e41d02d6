#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "analyse/typed_session.h"
#include "model/typing_config.h"

namespace mirvane {

/// Median, mean and standard deviation (n - 1) of some values, ms. Absent when there are too few.
struct Spread {
  std::optional<double> median = {};
  std::optional<double> mean = {};
  std::optional<double> deviation = {};
};

[[nodiscard]] Spread spreadOf(std::vector<double> values);

/// The times of a session's keys.
struct Rhythm {
  std::optional<double> first = {};  ///< first and last key, seconds since the start
  std::optional<double> last = {};
  Spread intervals = {};
  Spread holds = {};
  std::int64_t hesitations = 0;
  std::int64_t repeats = 0;  ///< runs of one key struck again and again
  std::int64_t heldRepeats = 0;
};

[[nodiscard]] Rhythm rhythmOf(const std::vector<TypedKey>& keys, const TypingConfig& config);

}  // namespace mirvane
