#include "correct/focused_text.h"

#include <gtest/gtest.h>

#include "platform/simulated/desktop.h"

namespace mirvane {
namespace {

using simulated::ElementKind;

struct Found {
  std::string word;
  Utf16Range range;
  bool operator==(const Found&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Found& found) {
  return out << found.word << '@' << found.range.location << '+' << found.range.length;
}

using Look = std::optional<WordAtCaret> (*)(const Accessibility&);

/// What a look-up answers for a text with the caret at a position, at the end when absent.
std::optional<Found> look(Look lookUp, const char* text, std::optional<std::int64_t> caret = {}) {
  simulated::Desktop desktop;
  auto& element = desktop.openElement(ElementKind::multiLine, text);
  if (caret) element.placeCaret(*caret);
  const auto word = lookUp(desktop.accessibility());
  if (!word) return std::nullopt;
  return Found{word->word, word->range};
}

TEST(CurrentWord, ReachesFromTheLastWhitespaceToTheCaret) {
  EXPECT_EQ(look(currentWordBeforeCaret, "hello world"), (Found{"world", {6, 5}}));
  EXPECT_EQ(look(currentWordBeforeCaret, "hello world", 8), (Found{"wo", {6, 2}}));
  EXPECT_EQ(look(currentWordBeforeCaret, "(\"it's"), (Found{"(\"it's", {0, 6}}));
  EXPECT_EQ(look(currentWordBeforeCaret, "😀é\ncafe\u0301"), (Found{"cafe\u0301", {4, 5}}));
  EXPECT_EQ(look(currentWordBeforeCaret, "a\u2003漢字"), (Found{"漢字", {2, 2}}));
  EXPECT_EQ(look(currentWordBeforeCaret, "a \u0301b"), (Found{"\u0301b", {2, 2}}));
}

TEST(CurrentWord, IsMissingBehindWhitespaceAndAtTheStart) {
  EXPECT_EQ(look(currentWordBeforeCaret, ""), std::nullopt);
  EXPECT_EQ(look(currentWordBeforeCaret, "hello", 0), std::nullopt);
  EXPECT_EQ(look(currentWordBeforeCaret, "hello "), std::nullopt);
  EXPECT_EQ(look(currentWordBeforeCaret, "hello\u00a0"), std::nullopt);
}

TEST(CompletedWord, IsTheOneBeforeTheRunOfBoundaries) {
  EXPECT_EQ(look(lastCompletedWordBeforeCaret, "helo "), (Found{"helo", {0, 4}}));
  EXPECT_EQ(look(lastCompletedWordBeforeCaret, "helo?! "), (Found{"helo", {0, 4}}));
  EXPECT_EQ(look(lastCompletedWordBeforeCaret, "say (helo)]}>'\n"), (Found{"helo", {5, 4}}));
  EXPECT_EQ(look(lastCompletedWordBeforeCaret, "didn't "), (Found{"t", {5, 1}}));
  EXPECT_EQ(look(lastCompletedWordBeforeCaret, "e-mail, now", 7), (Found{"e-mail", {0, 6}}));
  EXPECT_EQ(look(lastCompletedWordBeforeCaret, "😀 caf\u0065\u0301. "),
            (Found{"cafe\u0301", {3, 5}}));
  EXPECT_EQ(look(lastCompletedWordBeforeCaret, "a\u2019b."), (Found{"a\u2019b", {0, 3}}));
}

TEST(CompletedWord, IsMissingWithoutBoundaryOrWord) {
  EXPECT_EQ(look(lastCompletedWordBeforeCaret, ""), std::nullopt);
  EXPECT_EQ(look(lastCompletedWordBeforeCaret, "  "), std::nullopt);
  EXPECT_EQ(look(lastCompletedWordBeforeCaret, "helo"), std::nullopt);
  EXPECT_EQ(look(lastCompletedWordBeforeCaret, "helo ", 0), std::nullopt);
  EXPECT_EQ(look(lastCompletedWordBeforeCaret, "helo -"), std::nullopt);
}

}  // namespace
}  // namespace mirvane
