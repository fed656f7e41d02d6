#include "correct/auto_apply_rule.h"

#include <gtest/gtest.h>

namespace mirvane {
namespace {

TEST(AutoApplyRule, ThresholdFallsWithTheMotorPriorWithinItsBounds) {
  struct Row {
    double motorPrior;
    AutoApplyThreshold bounds;
    double threshold;
  };
  const Row rows[] = {
      {0, {}, 0.85},
      {0.5, {}, 0.815},
      {1, {}, 0.78},
      {7, {}, 0.78},
      {-1, {}, 0.85},
      {0, {.defaultValue = 0.99}, 0.92},
      {0, {.defaultValue = 0.5}, 0.78},
      {0.5, {.defaultValue = 0.85, .min = 0.9, .max = 0.8}, 0.9},
  };
  for (const auto& [motorPrior, bounds, threshold] : rows) {
    EXPECT_DOUBLE_EQ(autoApplyThreshold(motorPrior, bounds), threshold)
        << motorPrior << " with " << bounds.defaultValue << ' ' << bounds.min << ' ' << bounds.max;
  }
}

TEST(AutoApplyRule, OffersOnlyWhatIsBelowTheThresholdButNotZero) {
  EXPECT_FALSE(isUncertainCorrection(0, 0, {}));
  EXPECT_TRUE(isUncertainCorrection(0.01, 0, {}));
  EXPECT_TRUE(isUncertainCorrection(0.84, 0, {}));
  EXPECT_FALSE(isUncertainCorrection(0.85, 0, {}));
  EXPECT_FALSE(isUncertainCorrection(0.8, 1, {}));
}

}  // namespace
}  // namespace mirvane
