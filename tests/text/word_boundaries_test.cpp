#include "text/word_boundaries.h"

#include <gtest/gtest.h>

namespace mirvane::text {
namespace {

TEST(WordBoundaries, AreOneCharacterOfWhitespaceOrPunctuation) {
  for (const char* key :
       {".", ",", "!", "?", ";", ":",  "\"", "'",  "(",    ")",      "[",      "]",
        "{", "}", "<", ">", " ", "\t", "\n", "\r", "\r\n", "\u00A0", "\u2029", "\u3000"}) {
    EXPECT_TRUE(isBoundaryKeyText(key)) << key;
  }
  for (const char* key : {"", "a", "1", "-", "/", "@", "_", "\b", "\u2019", "\u00AB", "\u3002", "é",
                          "日", "😀", "\u200B"}) {
    EXPECT_FALSE(isBoundaryKeyText(key)) << key;
  }
}

TEST(WordBoundaries, FollowTheFirstScalarOfAWholeCharacter) {
  EXPECT_TRUE(isBoundaryKeyText(".\u0301"));
  EXPECT_TRUE(isBoundaryKeyText("'\uFE0F"));
  EXPECT_FALSE(isBoundaryKeyText("e\u0301"));
  EXPECT_FALSE(isBoundaryKeyText(", "));
  EXPECT_FALSE(isBoundaryKeyText(" 😀"));
}

}  // namespace
}  // namespace mirvane::text
