#include "text/word_boundaries.h"

#include <gtest/gtest.h>

namespace mirvane::text {
namespace {

TEST(WordBoundaries, AreOneCharacterOfWhitespaceOrPunctuation) {
  for (const char* key :
       {".",  ",",  "!",    "?",      ";",      ":",      "\"",      "'",      "(",
        ")",  "[",  "]",    "{",      "}",      "<",      ">",       " ",      "\t",
        "\n", "\r", "\r\n", "\u00A0", "\u2029", "\u3000", ".\u0301", "'\uFE0F"}) {
    EXPECT_TRUE(isBoundaryKeyText(key)) << key;
  }
  for (const char* key : {"", "a", ", ", " 😀", "e\u0301", "1", "-", "/", "@", "_", "\b", "\u2019",
                          "\u00AB", "\u3002", "é", "日", "😀", "\u200B"}) {
    EXPECT_FALSE(isBoundaryKeyText(key)) << key;
  }
}

}  // namespace
}  // namespace mirvane::text
