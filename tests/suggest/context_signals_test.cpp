#include "suggest/context_signals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/simulated/scripted_lexical_tagger.h"
#include "text/utf16.h"

namespace mirvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

const simulated::ScriptedLexicalTagger tagger({{"to", LexicalClass::preposition}});

ContextSignals signalsAt(const std::string& text, std::int64_t caret) {
  return extractContextSignals(text, caret, 6, tagger);
}

TEST(ContextWords, AreRunsOfLettersAndPlainApostrophes) {
  EXPECT_THAT(contextWords("it's my 2nd, e-mail"), ElementsAre("it's", "my", "nd", "e", "mail"));
  EXPECT_THAT(contextWords("it’s\na\r\nnew\u2028line"), ElementsAre("it", "s", "a", "new", "line"));
  EXPECT_THAT(contextWords("déjà vu\u0301 漢字 😀"), ElementsAre("déjà", "vu\u0301", "漢字"));
  EXPECT_THAT(contextWords("a'\u0301b"), ElementsAre("a", "b")) << "not a plain apostrophe";
  EXPECT_THAT(contextWords(" .7 "), IsEmpty());
}

TEST(ContextSignals, TakeTheLastWordBeforeTheCaretAsTheOneBeingRanked) {
  const auto signals = signalsAt("I went to teh ", 14);
  EXPECT_EQ(signals.prevWord, "to");
  EXPECT_EQ(signals.nextWord, std::nullopt);
  EXPECT_THAT(signals.surroundingWords, ElementsAre("i", "went", "to"));
  EXPECT_THAT(signals.prevPOS, Optional(LexicalClass::preposition));
}

TEST(ContextSignals, HoldNothingBeforeTheFirstWord) {
  const auto signals = signalsAt("teh Cat", 4);
  EXPECT_EQ(signals.prevWord, std::nullopt);
  EXPECT_EQ(signals.prevPOS, std::nullopt);
  EXPECT_EQ(signals.nextWord, "Cat");
  EXPECT_THAT(signals.surroundingWords, ElementsAre("cat"));
  EXPECT_THAT(signalsAt("", 0).surroundingWords, IsEmpty());
}

TEST(ContextSignals, ReachSixWordsToEachSide) {
  const std::string before = "a b c d e f g H", after = " i j k l m n o";
  const auto caret = static_cast<std::int64_t>(before.size());
  EXPECT_THAT(signalsAt(before + after, caret).surroundingWords,
              ElementsAre("b", "c", "d", "e", "f", "g", "i", "j", "k", "l", "m", "n"));
}

TEST(ContextSignals, CountTheCaretInUtf16Units) {
  const std::string before = "😀 é two thr";
  EXPECT_EQ(signalsAt(before + "ee four", text::utf16Length(before)).prevWord, "two");
  EXPECT_EQ(signalsAt("a 😀b", 3).nextWord, "b") << "inside the emoji";
}

}  // namespace
}  // namespace mirvane
