#include "suggest/nearby_keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mirvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TypingConfig configWith(NearbyKeyTable table) {
  TypingConfig config;
  config.nearbyKeyProbabilities = std::move(table);
  return config;
}

TEST(NearbyKeys, FollowTheTableByFallingProbabilityAndKeepItsOrderOfTies) {
  const auto config = configWith(
      {{"q", {{"x", 0.1}, {"a", 0.3}, {"y", 0.1}, {"z", 0.2}}}, {"é", {{"e", 0.4}}}, {"W", {}}});
  const NearbyKeys keys(config);
  EXPECT_THAT(keys.nearbyKeyNeighbors("q"), ElementsAre("a", "z", "x", "y"));
  EXPECT_THAT(keys.nearbyKeyNeighbors("e\u0301"), ElementsAre("e"));
  EXPECT_THAT(keys.nearbyKeyNeighbors("w"), IsEmpty()) << "no row falls back to the layout";
}

TEST(NearbyKeys, LookProbabilitiesUpInLowerCaseByTypedThenMeant) {
  const auto config = configWith({{"r", {{"t", 0.3}}}, {"T", {{"r", 0.2}}}, {"é", {{"ë", 0.4}}}});
  const NearbyKeys keys(config);
  EXPECT_EQ(keys.nearbyKeyProbability("r", "t"), 0.3);
  EXPECT_EQ(keys.nearbyKeyProbability("R", "T"), 0.3);
  EXPECT_EQ(keys.nearbyKeyProbability("É", "e\u0308"), 0.4);
  EXPECT_EQ(keys.nearbyKeyProbability("t", "r"), 0) << "a row under a capital is never used";
  EXPECT_EQ(keys.nearbyKeyProbability("r", "x"), 0);
}

}  // namespace
}  // namespace mirvane
