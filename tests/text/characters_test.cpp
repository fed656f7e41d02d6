#include "text/characters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "text/utf16.h"

namespace mirvane::text {
namespace {

using Pieces = std::vector<std::string_view>;

std::string joined(const Pieces& pieces) {
  std::string text;
  for (const auto piece : pieces) text += piece;
  return text;
}

/// Texts by their user-perceived characters.
const std::vector<Pieces> texts{
    {"a"},
    {"h", "e", "l", "o"},
    {"a", "\r\n", "b", "\n", "\r"},
    {"\r\n"},
    {"b", "\r\n"},
    {"c", "a", "f", "e\u0301"},
    {"e\u0301\u0323"},
    {"x", "😀", "y"},
    {"👨‍👩‍👧‍👦"},
    {"👍🏽", "👨‍👩‍👧", "!"},
    {"🇩🇪", "🇫🇷"},
    {"日", "本", "語"},
    {"\u1112\u1161\u11ab", "\u1100\u1173\u11af"},
};

TEST(Characters, AreGraphemeClusters) {
  for (const auto& pieces : texts) {
    const std::string text = joined(pieces);
    SCOPED_TRACE(text);
    EXPECT_EQ(characters(text), pieces);
    EXPECT_EQ(characterCount(text), pieces.size());
    EXPECT_EQ(isSingleCharacter(text), pieces.size() == 1);
    EXPECT_EQ(withoutLastCharacter(text), joined({pieces.begin(), pieces.end() - 1}));
  }
}

TEST(Characters, EndWhereTheyEndInUtf16) {
  for (const auto& pieces : texts) {
    const std::string text = joined(pieces);
    SCOPED_TRACE(text);
    const auto units = toUtf16(text);
    EXPECT_EQ(firstCharacterEnd(units), toUtf16(pieces.front()).size());
    EXPECT_EQ(lastCharacterStart(units), units.size() - toUtf16(pieces.back()).size());
  }
}

TEST(Characters, NoneInAnEmptyText) {
  EXPECT_THAT(characters(""), testing::IsEmpty());
  EXPECT_EQ(characterCount(""), 0U);
  EXPECT_FALSE(isSingleCharacter(""));
  EXPECT_EQ(withoutLastCharacter(""), "");
}

}  // namespace
}  // namespace mirvane::text
