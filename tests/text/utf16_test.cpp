#include "text/utf16.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "text/scalars.h"

namespace mirvane::text {
namespace {

TEST(Utf16, CountsCodeUnitsAndConvertsBothWays) {
  const std::pair<const char*, std::u16string> rows[] = {
      {"", u""},
      {"don't", u"don't"},
      {"e\u0301é", u"e\u0301é"},
      {"日本", u"日本"},
      {"a😀", u"a\xD83D\xDE00"},
      {"👩‍💻", u"\xD83D\xDC69\x200D\xD83D\xDCBB"},
      {"\U0010FFFF", u"\xDBFF\xDFFF"},
  };
  for (const auto& [text, units] : rows) {
    EXPECT_EQ(toUtf16(text), units);
    EXPECT_EQ(toUtf8(units), text);
    EXPECT_EQ(utf16Length(text), static_cast<std::int64_t>(units.size())) << text;
  }
}

TEST(Utf16, IllFormedPiecesBecomeReplacementCharacters) {
  EXPECT_EQ(toUtf8(u"a\xD83D"), "a\uFFFD");
  EXPECT_EQ(toUtf8(u"\xDE00z"), "\uFFFDz");
  EXPECT_EQ(toUtf16("a\xFFz"), u"a\xFFFDz");
  EXPECT_EQ(toUtf16("a\xE2\x82"), u"a\xFFFD");
  EXPECT_EQ(firstScalar("\xC3"), replacementScalar);
}

TEST(Utf16, OffsetsBecomeByteOffsetsWithinTheText) {
  constexpr std::string_view text = "aé😀b";
  const std::pair<std::int64_t, std::size_t> rows[] = {{-1, 0}, {0, 0}, {1, 1}, {2, 3}, {3, 3},
                                                       {4, 7},  {5, 8}, {6, 8}, {99, 8}};
  for (const auto& [offset, bytes] : rows) EXPECT_EQ(byteOffset(text, offset), bytes) << offset;
  EXPECT_EQ(byteOffset("", 0), 0U);
}

TEST(Scalars, BelongToTheirUnicodeClass) {
  const auto all = [](std::u32string_view scalars, auto isOfClass) {
    return std::all_of(scalars.begin(), scalars.end(), isOfClass);
  };
  EXPECT_TRUE(all(U"\t\n\v\f\r \u0085\u00A0\u2028\u3000", isWhitespace));
  EXPECT_TRUE(all(U"azAZéß日\u02B0\U00010400", isLetter));
  EXPECT_TRUE(all(U"09٣Ⅷ½", isNumber));
  EXPECT_TRUE(all(U"@[`{/:'’-_\u0301\u200B😀\uFFFD", [](char32_t scalar) {
    return !isLetter(scalar) && !isNumber(scalar) && !isWhitespace(scalar);
  }));
}

}  // namespace
}  // namespace mirvane::text
