#include "model/typing_config.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "platform/simulated/in_memory_bundle.h"

namespace mirvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// Every number of a configuration, in the order of its fields.
using Numbers = std::array<double, 12>;

Numbers numbersOf(const TypingConfig& config) {
  const auto& [control, pd, boundary, samples] = config.holdTime;
  const auto& [boost, damp] = config.motorPriorWeights;
  const auto& [byDefault, min, max] = config.autoApplyThreshold;
  const auto repeats = static_cast<double>(config.minimumRepeatCount);
  const auto baseline = static_cast<double>(samples);
  return {config.maxInputGap,
          config.hesitationThreshold,
          repeats,
          control,
          pd,
          boundary,
          baseline,
          boost,
          damp,
          byDefault,
          min,
          max};
}

constexpr Numbers defaults{140, 1000, 2, 95, 152, 130, 50, 1.4, 0.85, 0.85, 0.78, 0.92};

Numbers defaultsBut(std::initializer_list<std::pair<std::size_t, double>> changes) {
  Numbers numbers = defaults;
  for (const auto& [index, value] : changes) numbers.at(index) = value;
  return numbers;
}

TypingConfig loaded(const std::string& json) {
  simulated::InMemoryBundle bundle;
  bundle.add("typing_parameters.json", json);
  return loadTypingConfig(bundle);
}

TEST(TypingConfig, HasDefaultsWithoutAUsableResource) {
  simulated::InMemoryBundle bundle;
  EXPECT_EQ(numbersOf(loadTypingConfig(bundle)), defaults);
  bundle.addUnreadable("typing_parameters.json");
  EXPECT_EQ(numbersOf(loadTypingConfig(bundle)), defaults);
  for (const char* json : {"", "{", "[]", "[{\"maxInputGap\":1}]", "7", "null", "\"maxInputGap\"",
                           "{\"maxInputGap\":1} x", "{\"maxInputGap\":1,}", "\xFF\xFE{}"}) {
    EXPECT_EQ(numbersOf(loaded(json)), defaults) << json;
    EXPECT_THAT(loaded(json).nearbyKeyProbabilities, IsEmpty()) << json;
  }
}

TEST(TypingConfig, ReadsEveryNumber) {
  const auto config = loaded(R"({
    "maxInputGap": 1, "hesitationThreshold": 2.5, "minimumRepeatCount": 3,
    "holdTime": {"controlMedian": 4, "pdMedian": 5.5, "boundary": -6,
                 "minSamplesForPersonalBaseline": 7},
    "motorPriorWeights": {"motorBoost": 8, "phoneticDamp": 9e1},
    "autoApplyThreshold": {"default": 10, "min": 0.9, "max": 0.8},
    "unknown": {"maxInputGap": 99}})");
  EXPECT_EQ(numbersOf(config), (Numbers{1, 2.5, 3, 4, 5.5, -6, 7, 8, 90, 10, 0.9, 0.8}));
}

TEST(TypingConfig, GivesEachBadKeyItsOwnDefault) {
  const std::pair<const char*, Numbers> rows[] = {
      {R"({"maxInputGap": "150", "hesitationThreshold": 900})", defaultsBut({{1, 900}})},
      {R"({"minimumRepeatCount": 2.5})", defaults},
      {R"({"minimumRepeatCount": 3.0})", defaultsBut({{2, 3}})},
      {R"({"minimumRepeatCount": 9223372036854775808})", defaults},
      {R"({"minimumRepeatCount": true})", defaults},
      {R"({"holdTime": {"pdMedian": 200}})", defaultsBut({{4, 200}})},
      {R"({"holdTime": {"minSamplesForPersonalBaseline": 1.5, "boundary": 1}})",
       defaultsBut({{5, 1}})},
      {R"({"holdTime": [1, 2], "maxInputGap": 1})", defaultsBut({{0, 1}})},
      {R"({"motorPriorWeights": {"motorBoost": "2", "phoneticDamp": 1}})", defaultsBut({{8, 1}})},
      {R"({"motorPriorWeights": null, "autoApplyThreshold": 0.9})", defaults},
      {R"({"autoApplyThreshold": {"max": {}, "min": 0.5}})", defaultsBut({{10, 0.5}})},
  };
  for (const auto& [json, expected] : rows) EXPECT_EQ(numbersOf(loaded(json)), expected) << json;
}

TEST(TypingConfig, ReadsTheNearbyKeysByFirstCharacters) {
  const auto table = loaded(R"({"nearbyKeyMap": {
    "ab": {"sd": 0.1, "": 0.5}, "": {"x": 1}, "A": {}, "é!": {"👍🏽👍": 2, "日本": 3, "日": 4}}})")
                         .nearbyKeyProbabilities;
  EXPECT_THAT(table, ElementsAre(Pair("a", ElementsAre(Pair("s", 0.1))), Pair("A", IsEmpty()),
                                 Pair("é", ElementsAre(Pair("👍🏽", 2), Pair("日", 4)))));
}

TEST(TypingConfig, EmptiesTheNearbyKeysForOneBadEntry) {
  for (const char* map : {R"({"a": {"s": 0.2, "q": "x"}})", R"({"a": {"s": 0.2}, "b": 1})", "[]",
                          R"({"a": {"s": 0.2}, "b": {"n": true}})", "7", "null",
                          R"({"a": {"s": 0.2}, "": {"": null}})", R"({"a": [0.1]})"}) {
    const auto config = loaded(R"({"maxInputGap": 1, "nearbyKeyMap": )" + std::string(map) + "}");
    EXPECT_THAT(config.nearbyKeyProbabilities, IsEmpty()) << map;
    EXPECT_EQ(config.maxInputGap, 1) << map;
  }
}

}  // namespace
}  // namespace mirvane
