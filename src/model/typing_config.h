#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/bundle.h"

namespace mirvane {

/// Key-hold statistics, ms.
struct HoldTimeStats {
  double controlMedian = 95.0;
  double pdMedian = 152.0;  ///< of the patient group the engine is tuned for
  double boundary = 130.0;
  std::int64_t minSamplesForPersonalBaseline = 50;
};

struct MotorPriorWeights {
  double motorBoost = 1.4;
  double phoneticDamp = 0.85;
};

/// Bounds of the confidence from which a correction is applied instead of offered.
struct AutoApplyThreshold {
  double defaultValue = 0.85;
  double min = 0.78;
  double max = 0.92;
};

/// The keys that may have been meant by one typed key, with their probabilities, in file order.
using NearbyKeyRow = std::vector<std::pair<std::string, double>>;

/// table[typed][meant], in file order. Keys are single characters exactly as the resource gives
/// them; no key occurs twice.
using NearbyKeyTable = std::vector<std::pair<std::string, NearbyKeyRow>>;

/// Every tuning value of the engine. Times are ms. Values are taken as they are: nothing is
/// checked or clamped here.
struct TypingConfig {
  double maxInputGap = 140.0;
  double hesitationThreshold = 1000.0;
  std::int64_t minimumRepeatCount = 2;
  NearbyKeyTable nearbyKeyProbabilities;
  HoldTimeStats holdTime;
  MotorPriorWeights motorPriorWeights;
  AutoApplyThreshold autoApplyThreshold;
};

/// Reads the resource "typing_parameters.json". Whatever is missing, damaged or of the wrong type
/// takes its own default; nothing fails.
[[nodiscard]] TypingConfig loadTypingConfig(const Bundle& bundle);

/// The same from the resource's content.
[[nodiscard]] TypingConfig parseTypingConfig(std::string_view json);

}  // namespace mirvane
