#include "correct/typing_view_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/key_codes.h"
#include "support/correcting_desktop.h"
#include "support/scripted_english.h"

namespace mirvane {
namespace {

using simulated::ElementKind;
using testing::ElementsAre;
using testing::IsEmpty;

class TypingViewModelTest : public testing::Test {
 protected:
  simulated::TextElement& open(std::string_view text = {}) {
    return session.desktop.openElement(ElementKind::multiLine, text, {"org.example.notes"});
  }
  void type(std::string_view text) { session.desktop.type(text); }
  const TypedWordBuffer& buffer() { return session.engine.keyInputTracker().typedWordBuffer(); }

  ScriptedEnglish english{everydayScript()};
  CorrectingDesktop session{english.services()};
};

TEST_F(TypingViewModelTest, AppliesASureCorrectionAndArmsTheCycler) {
  const auto& element = open();
  type("helo ");
  EXPECT_EQ(element.text(), "hello ");
  EXPECT_EQ(element.caret(), 6);
  EXPECT_THAT(session.log(), ElementsAre("helo>hello auto-other 0.85"));
  const auto& record = session.cycler().record;
  ASSERT_TRUE(record);
  EXPECT_EQ(record->originalWord, "helo");
  EXPECT_THAT(record->candidates, ElementsAre("hello", "help", "held"));
  EXPECT_EQ(record->currentIndex, 0U);
  EXPECT_EQ(record->boundaryCharacter, " ");
  ASSERT_TRUE(record->axTarget);
  EXPECT_EQ(record->axTarget->range, (Utf16Range{0, 5}));
  EXPECT_EQ(buffer().lastCompletedWord(), (CompletedTypedWord{"hello", " "}));
}

TEST_F(TypingViewModelTest, OffersWhatIsNotSure) {
  const auto& element = open();
  type("hekp ");
  EXPECT_EQ(element.text(), "hekp ");
  EXPECT_THAT(session.log(), IsEmpty());
  ASSERT_TRUE(session.cycler().record);
  EXPECT_THAT(session.cycler().record->candidates, ElementsAre("hekp", "help", "keep"));
  EXPECT_EQ(session.cycler().record->currentText, "hekp");
}

TEST_F(TypingViewModelTest, GrowsReadierWithTheMotorPrior) {
  TypingConfig parameters;
  parameters.nearbyKeyProbabilities = {{"k", {{"l", 0.15}}}};  // confidence 0.8
  for (const double hold : {0.09, 0.2}) {
    CorrectingDesktop tuned(english.services(), parameters);
    const auto& element = tuned.desktop.openElement();
    // Irregular gaps and long holds make the prior.
    for (const char* part : {"the", " ", "the", " ", "hekp"}) {
      tuned.desktop.type(part, {.gap = hold * 2, .hold = hold});
      tuned.desktop.advance(hold > 0.1 ? 1.0 : 0);
    }
    tuned.desktop.type(" ");
    EXPECT_EQ(element.text(), hold > 0.1 ? "the the help " : "the the hekp ");
  }
}

TEST_F(TypingViewModelTest, OffersAlternativesOfAKnownWordWithoutTouchingIt) {
  const auto& element = open();
  type("the.");
  EXPECT_EQ(element.text(), "the.");
  ASSERT_TRUE(session.cycler().record);
  EXPECT_THAT(session.cycler().record->candidates, ElementsAre("the", "then"));
  type("say ");
  EXPECT_FALSE(session.cycler().record) << "a single suggestion is no choice";
}

TEST_F(TypingViewModelTest, KeepsTheRecordThroughBoundariesUntilTheNextOtherKey) {
  const auto& element = open();
  type("helo teh, ");
  EXPECT_EQ(element.text(), "hello the, ");
  type("!");
  EXPECT_EQ(session.cycler().record->originalWord, "teh");
  type("x");
  EXPECT_FALSE(session.cycler().record);
}

TEST_F(TypingViewModelTest, CorrectsAtReturnAndApostrophe) {
  const auto& element = open();
  type("helo\nhelo' teh\n");
  EXPECT_EQ(element.text(), "hello\nhello' the\n");
  EXPECT_EQ(element.caret(), element.length());
  EXPECT_EQ(session.log().size(), 3U);
}

TEST_F(TypingViewModelTest, ReadsOnlyTheNeighbourhoodInALongDocument) {
  std::string half;
  for (int i = 0; i < 200'000; ++i) half += "word ";
  auto& element = open(half + half);
  element.placeCaret(1'000'000);
  type("helo ");
  EXPECT_EQ(element.text().substr(999'995, 12), "word hello w");
  EXPECT_EQ(element.caret(), 1'000'006);
  EXPECT_LT(session.desktop.accessibility().unitsRead(), 5'000);
}

TEST_F(TypingViewModelTest, LeavesEverythingAloneWhenSwitchedOffOrInADisabledApplication) {
  const auto& element = open();
  session.settings.setIsAutoCorrectionEnabled(false);
  type("helo ");
  session.settings.setIsAutoCorrectionEnabled(true);
  session.settings.setDisabledAppBundleIDs({"org.example.notes"});
  type("helo ");
  EXPECT_EQ(element.text(), "helo helo ");
  EXPECT_THAT(session.log(), IsEmpty());
  EXPECT_FALSE(session.viewModel().typingInfo()->showSuggestions);
  EXPECT_EQ(*session.viewModel().feedbackType(), std::nullopt);
  session.settings.setDisabledAppBundleIDs({});
  type("helo ");
  EXPECT_EQ(element.text(), "helo helo hello ");
}

TEST_F(TypingViewModelTest, NeverTouchesOrOffersAnAllowedWord) {
  const auto& element = open();
  session.settings.setAllowList({"HELO"});
  type("helo ");
  EXPECT_EQ(element.text(), "helo ");
  EXPECT_FALSE(session.cycler().record);
}

TEST_F(TypingViewModelTest, KeepsTheNearbyKeyFeedbackOnceAWordOfEqualLengthWasFound) {
  open();
  type("he");
  EXPECT_EQ(*session.viewModel().feedbackType(), std::nullopt);
  type("lo xx ");
  EXPECT_EQ(*session.viewModel().feedbackType(), FeedbackType::nearbyKeyDetected);
  session.engine.reset();
  EXPECT_EQ(*session.viewModel().feedbackType(), std::nullopt);
}

TEST_F(TypingViewModelTest, PutsAPickedSuggestionInPlaceOfTheWordBeingTyped) {
  const auto& element = open("say ");
  type("helo");
  session.pick("help");
  EXPECT_EQ(element.text(), "say help");
  EXPECT_THAT(session.log(), ElementsAre("helo>help manual 0.50"));
  const auto& record = *session.cycler().record;
  EXPECT_THAT(record.candidates, ElementsAre("help", "hello", "held"));
  EXPECT_EQ(record.boundaryCharacter, "");
  EXPECT_EQ(record.axTarget->range, (Utf16Range{4, 4}));
  EXPECT_EQ(buffer().currentWord(), "help");
  EXPECT_EQ(session.viewModel().typingInfo()->word, "");
}

TEST_F(TypingViewModelTest, PicksWithoutAWord) {
  const auto& element = open();
  session.pick("hello");
  EXPECT_EQ(element.text(), "hello") << "typed with keys: no word, no target";
  EXPECT_EQ(session.cycler().record->originalWord, "hello");
  session.settings.setIsAutoCorrectionEnabled(false);
  session.pick("help");
  EXPECT_EQ(element.text(), "hello");
  EXPECT_EQ(session.log().size(), 1U);
}

TEST(TypingViewModelContext, ComesFromTheTextAroundTheWord) {
  auto script = everydayScript();
  script.bigrams = {{"say held", 10}, {"held then", 10}};
  const ScriptedEnglish english(script);
  CorrectingDesktop session(english.services());
  auto& element = session.desktop.openElement(ElementKind::multiLine, "say x then");
  element.select({4, 1});
  session.desktop.type("helo");
  EXPECT_EQ(session.viewModel().typingInfo()->suggestions.front(), "held");
  session.desktop.openElement(ElementKind::withoutAccessibility, "say ");
  session.desktop.type("helo");
  EXPECT_EQ(session.viewModel().typingInfo()->suggestions.front(), "hello")
      << "no context without accessibility";
}

}  // namespace
}  // namespace mirvane
