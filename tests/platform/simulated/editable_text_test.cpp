#include "platform/simulated/editable_text.h"

#include <gtest/gtest.h>

#include <random>

namespace mirvane::simulated {
namespace {

std::int64_t lengthOf(const std::u16string& text) {
  return static_cast<std::int64_t>(text.size());
}

TEST(EditableText, StaysEqualToAPlainStringUnderRandomEdits) {
  std::mt19937 random(7);
  const auto upTo = [&](std::size_t limit) { return random() % (limit + 1); };
  std::u16string expected = u"The quick brown fox";
  EditableText text(expected);
  for (int step = 0; step < 3000; ++step) {
    const std::size_t from = upTo(expected.size());
    const std::size_t length = upTo(std::min<std::size_t>(expected.size() - from, 8));
    const std::u16string inserted(upTo(9), static_cast<char16_t>(u'a' + step % 26));
    expected.replace(from, length, inserted);
    text.replace({static_cast<std::int64_t>(from), static_cast<std::int64_t>(length)}, inserted);

    ASSERT_EQ(text.size(), lengthOf(expected)) << "step " << step;
    ASSERT_EQ(text.slice({0, text.size()}), expected) << "step " << step;
    const std::size_t start = upTo(expected.size());
    const std::size_t count = upTo(expected.size() - start);
    ASSERT_EQ(text.slice({static_cast<std::int64_t>(start), static_cast<std::int64_t>(count)}),
              expected.substr(start, count));
    for (std::size_t i = 0; i < expected.size(); ++i) {
      ASSERT_EQ(text.unitAt(static_cast<std::int64_t>(i)), expected[i]);
    }
  }
}

TEST(EditableText, ClampsRanges) {
  const EditableText text(u"hello");
  struct Row {
    Utf16Range range;
    Utf16Range clamped;
  };
  const Row rows[] = {
      {{1, 2}, {1, 2}}, {{-3, 2}, {0, 2}}, {{4, 9}, {4, 1}},
      {{9, 1}, {5, 0}}, {{2, -1}, {2, 0}}, {{0, INT64_MAX}, {0, 5}},
  };
  for (const auto& [range, clamped] : rows) {
    EXPECT_EQ(text.clamped(range), clamped) << range.location << ", " << range.length;
  }
}

}  // namespace
}  // namespace mirvane::simulated
