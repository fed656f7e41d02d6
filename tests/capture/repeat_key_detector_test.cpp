#include "capture/repeat_key_detector.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/key_codes.h"

namespace mirvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Key {
  const char* text;
  std::optional<double> gap;
  std::uint16_t keyCode = 0;
  std::uint64_t flags = 0;
};

/// Events in list order; keys of different text differ in their code unless one is given.
KeyEventList events(const std::vector<Key>& keys) {
  KeyEventList list;
  for (const auto& [text, gap, code, flags] : keys) {
    const auto ownCode = static_cast<std::uint16_t>(1000 + static_cast<unsigned char>(*text));
    list.push_back({makeUuid(), code == 0 ? ownCode : code, text, 0, flags, gap, {}});
  }
  return list;
}

/// The runs as "text start-end xcount".
std::vector<std::string> runs(const KeyEventList& list, const RepeatKeyDetector& detector = {},
                              std::size_t count = SIZE_MAX) {
  std::vector<std::string> shown;
  for (const auto& run : detector.detect(list, count)) {
    shown.push_back(run.inputText + ' ' + std::to_string(run.startIndex) + '-' +
                    std::to_string(run.endIndex) + " x" + std::to_string(run.repeatCount));
  }
  return shown;
}

TEST(RepeatKeyDetector, ReportsRunsByPosition) {
  EXPECT_THAT(runs(events({})), IsEmpty());
  EXPECT_THAT(runs(events({{"a", 50}})), IsEmpty());
  EXPECT_THAT(runs(events({{"a", 999}, {"a", 50}, {"a", 60}})), ElementsAre("a 0-2 x3"));
  EXPECT_THAT(runs(events({{"x", 9}, {"a", 9}, {"a", 9}, {"x", 9}, {"a", 9}, {"a", 9}, {"a", 9}})),
              ElementsAre("a 1-2 x2", "a 4-6 x3"));
}

TEST(RepeatKeyDetector, TestsTheGapOfTheLaterElement) {
  EXPECT_THAT(runs(events({{"a", 500}, {"a", 139.9}})), ElementsAre("a 0-1 x2"));
  EXPECT_THAT(runs(events({{"a", 50}, {"a", 140}})), IsEmpty());
  EXPECT_THAT(runs(events({{"a", 50}, {"a", std::nullopt}})), IsEmpty());
  EXPECT_THAT(runs(events({{"a", 50}, {"a", -3}, {"a", 140}, {"a", 3}})),
              ElementsAre("a 0-1 x2", "a 2-3 x2"));
}

TEST(RepeatKeyDetector, KnowsAKeyByItsTextOrItsCode) {
  EXPECT_THAT(runs(events({{"A", 9, 7}, {"a", 9, 7}})), ElementsAre("A 0-1 x2"));
  EXPECT_THAT(runs(events({{"a", 9, 7}, {"a", 9, 8}})), ElementsAre("a 0-1 x2"));
  EXPECT_THAT(runs(events({{"é", 9, 7}, {"e\u0301", 9, 8}})), ElementsAre("é 0-1 x2"));
  EXPECT_THAT(runs(events({{"😀", 9, 7}, {"😁", 9, 8}})), IsEmpty());
  EXPECT_THAT(runs(events({{"a", 9, 7}, {"b", 9, 8}})), IsEmpty());
}

TEST(RepeatKeyDetector, IsBlockedByEveryModifierButShift) {
  using namespace modifier;
  for (const auto flag : {capsLock, control, option, command}) {
    EXPECT_THAT(runs(events({{"a", 9, 0, flag}, {"a", 9}})), IsEmpty()) << flag;
    EXPECT_THAT(runs(events({{"a", 9}, {"a", 9, 0, flag | shift}})), IsEmpty()) << flag;
  }
  EXPECT_THAT(runs(events({{"A", 9, 0, shift}, {"A", 9, 0, shift | 0x200000}})),
              ElementsAre("A 0-1 x2"));
}

TEST(RepeatKeyDetector, HonoursItsSettings) {
  const auto list = events({{"a", 9}, {"a", 9}, {"b", 9}, {"c", 50}, {"c", 50}, {"c", 50}});
  EXPECT_THAT(runs(list, {140, 3}), ElementsAre("c 3-5 x3"));
  EXPECT_THAT(runs(list, {50, 2}), ElementsAre("a 0-1 x2"));
  EXPECT_THAT(runs(list, {140, 1}), ElementsAre("a 0-1 x2", "b 2-2 x1", "c 3-5 x3"));
  EXPECT_THAT(runs(list, {140, 2}, 5), ElementsAre("a 0-1 x2", "c 3-4 x2"));
  EXPECT_NE(RepeatKeyDetector{}.detect(list)[0].id, RepeatKeyDetector{}.detect(list)[0].id);
}

}  // namespace
}  // namespace mirvane
