#include "suggest/repeat_variants.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mirvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(RepeatCollapseVariants, StartWithTheWordAndTakeTheSingleLetterFirst) {
  EXPECT_THAT(repeatCollapseVariants(""), IsEmpty());
  EXPECT_THAT(repeatCollapseVariants("word"), ElementsAre("word"));
  EXPECT_THAT(repeatCollapseVariants("helllo"), ElementsAre("helllo", "helo", "hello"));
  EXPECT_THAT(repeatCollapseVariants("aab"), ElementsAre("aab", "ab"));
  EXPECT_THAT(repeatCollapseVariants("aabb"), ElementsAre("aabb", "ab", "abb", "aab"));
}

TEST(RepeatCollapseVariants, LeaveTwoCommonlyDoubledLettersAlone) {
  EXPECT_THAT(repeatCollapseVariants("book"), ElementsAre("book"));
  for (const char letter : std::string("lseofrtnpcdgm")) {
    EXPECT_EQ(repeatCollapseVariants(std::string(2, letter)).size(), 1U) << letter;
    EXPECT_EQ(repeatCollapseVariants(std::string(3, letter)).size(), 3U) << letter;
  }
  for (const char letter : std::string("abhijkquvwxyz'")) {
    EXPECT_EQ(repeatCollapseVariants(std::string(2, letter)).size(), 2U) << letter;
  }
}

TEST(RepeatCollapseVariants, TellCapitalsApart) {
  EXPECT_THAT(repeatCollapseVariants("LL"), ElementsAre("LL", "L"));
  EXPECT_THAT(repeatCollapseVariants("Aa"), ElementsAre("Aa"));
}

TEST(RepeatCollapseVariants, CountCharactersNotBytes) {
  EXPECT_THAT(repeatCollapseVariants("xéé"), ElementsAre("xéé", "xé"));
  EXPECT_THAT(repeatCollapseVariants("😀😀"), ElementsAre("😀😀", "😀"));
}

TEST(TripleRepeat, NeedsThreeEqualCharactersInARow) {
  EXPECT_TRUE(hasTripleRepeat("helllo"));
  EXPECT_TRUE(hasTripleRepeat("é\u0065\u0301é")) << "canonically equivalent characters are equal";
  EXPECT_FALSE(hasTripleRepeat("hello"));
  EXPECT_FALSE(hasTripleRepeat("lolol"));
  EXPECT_FALSE(hasTripleRepeat(""));
}

}  // namespace
}  // namespace mirvane
