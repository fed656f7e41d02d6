#include "text/characters.h"

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
const std::vector<Pieces> texts{{"a"},
                                {"h", "o"},
                                {"\r\n"},
                                {"b", "\r\n"},
                                {"a", "\r\n", "b", "\n", "\r"},
                                {"e\u0301\u0323"},
                                {"f", "e\u0301"},
                                {"x", "😀", "y"},
                                {"👨‍👩‍👧‍👦"},
                                {"👍🏽", "👨‍👩‍👧", "!"},
                                {"🇩🇪", "🇫🇷"},
                                {"日", "本"},
                                {"\u1112\u1161\u11ab", "\u1100\u1173\u11af"}};

TEST(Characters, AreGraphemeClusters) {
  for (const auto& pieces : texts) {
    const std::string text = joined(pieces);
    SCOPED_TRACE(text);
    EXPECT_EQ(characters(text), pieces);
    EXPECT_EQ(characterCount(text), pieces.size());
    EXPECT_EQ(isSingleCharacter(text), pieces.size() == 1);
    EXPECT_EQ(withoutLastCharacter(text), joined({pieces.begin(), pieces.end() - 1}));
    const auto units = toUtf16(text);
    EXPECT_EQ(firstCharacterEnd(units), toUtf16(pieces.front()).size());
    EXPECT_EQ(lastCharacterStart(units), units.size() - toUtf16(pieces.back()).size());
  }
  EXPECT_EQ(characterCount(""), 0U);
  EXPECT_FALSE(isSingleCharacter(""));
  EXPECT_EQ(withoutLastCharacter(""), "");
}

}  // namespace
}  // namespace mirvane::text
