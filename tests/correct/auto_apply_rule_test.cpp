#include "correct/auto_apply_rule.h"

#include <gtest/gtest.h>

namespace mirvane {
namespace {

TEST(AutoApplyRule, ThresholdFallsWithTheMotorPriorWithinItsBounds) {
  EXPECT_DOUBLE_EQ(autoApplyThreshold(0, {}), 0.85);
  EXPECT_DOUBLE_EQ(autoApplyThreshold(0.5, {}), 0.815);
  EXPECT_DOUBLE_EQ(autoApplyThreshold(1, {}), 0.78);
  EXPECT_DOUBLE_EQ(autoApplyThreshold(7, {}), 0.78);
  EXPECT_DOUBLE_EQ(autoApplyThreshold(-1, {}), 0.85);
  EXPECT_DOUBLE_EQ(autoApplyThreshold(0, {.defaultValue = 0.99}), 0.92);
  EXPECT_DOUBLE_EQ(autoApplyThreshold(0, {.defaultValue = 0.5}), 0.78);
  EXPECT_DOUBLE_EQ(autoApplyThreshold(0.5, {.min = 0.9, .max = 0.8}), 0.9) << "crossed bounds";
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
