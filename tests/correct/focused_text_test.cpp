#include "correct/focused_text.h"

#include <gtest/gtest.h>

#include "platform/simulated/desktop.h"
#include "text/utf16.h"

namespace mirvane {
namespace {

using simulated::ElementKind;

using Look = std::optional<WordAtCaret> (*)(const Accessibility&);

/// What a look-up answers, as "word@location+length", for a text with the caret at its "|", at the
/// end without one.
std::string look(Look lookUp, std::string text) {
  const auto mark = text.find('|');
  const auto caret = text::utf16Length(text.substr(0, mark));
  if (mark != std::string::npos) text.erase(mark, 1);
  simulated::Desktop desktop;
  desktop.openElement(ElementKind::multiLine, text).placeCaret(caret);
  const auto found = lookUp(desktop.accessibility());
  if (!found) return "none";
  const auto [location, length] = found->range;
  return found->word + '@' + std::to_string(location) + '+' + std::to_string(length);
}

/// Every row is "text -> what is found".
void expectFound(Look lookUp, std::initializer_list<std::string> rows) {
  for (const auto& row : rows) {
    const auto arrow = row.rfind(" -> ");
    EXPECT_EQ(look(lookUp, row.substr(0, arrow)), row.substr(arrow + 4)) << row;
  }
}

TEST(CurrentWord, ReachesFromTheLastWhitespaceToTheCaret) {
  expectFound(
      currentWordBeforeCaret,
      {"hello world -> world@6+5", "hello wo|rld -> wo@6+2", "(\"it's -> (\"it's@0+6",
       "😀é\ncafe\u0301 -> cafe\u0301@4+5", "a\u2003漢字 -> 漢字@2+2", "a \u0301b -> \u0301b@2+2",
       " -> none", "|hello -> none", "hello  -> none", "hello\u00a0 -> none"});
}

TEST(CompletedWord, IsTheOneBeforeTheRunOfBoundaries) {
  expectFound(lastCompletedWordBeforeCaret,
              {"helo  -> helo@0+4", "helo?!  -> helo@0+4", "say (helo)]}>'\n -> helo@5+4",
               "didn't  -> t@5+1", "e-mail,| now -> e-mail@0+6",
               "😀 caf\u0065\u0301.  -> cafe\u0301@3+5", "a\u2019b. -> a\u2019b@0+3", " -> none",
               "   -> none", "helo -> none", "|helo  -> none", "helo - -> none"});
}

}  // namespace
}  // namespace mirvane
