#include "correct/auto_apply_rule.h"

#include <algorithm>

namespace mirvane {

double autoApplyThreshold(double motorPrior, const AutoApplyThreshold& bounds) {
  const double m = std::clamp(motorPrior, 0.0, 1.0);
  const double threshold = bounds.defaultValue - m * (bounds.defaultValue - bounds.min);
  return std::max(std::min(threshold, bounds.max), bounds.min);
}

bool isUncertainCorrection(double confidence, double motorPrior, const AutoApplyThreshold& bounds) {
  return confidence > 0 && confidence < autoApplyThreshold(motorPrior, bounds);
}

}  // namespace mirvane
