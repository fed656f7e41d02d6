#pragma once

#include "model/typing_config.h"

namespace mirvane {

/// The confidence from which a correction is applied: falls from the default towards the minimum
/// as the motor prior grows, and stays within the bounds.
[[nodiscard]] double autoApplyThreshold(double motorPrior, const AutoApplyThreshold& bounds);

/// Whether a correction is only offered. One whose kind of error is not known (confidence 0) is
/// not uncertain: it is applied.
[[nodiscard]] bool isUncertainCorrection(double confidence, double motorPrior,
                                         const AutoApplyThreshold& bounds);

}  // namespace mirvane
