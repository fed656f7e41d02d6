#include "correct/suggestion_cycler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/correcting_desktop.h"
#include "support/scripted_english.h"

namespace mirvane {
namespace {

using simulated::ElementKind;
using testing::ElementsAre;

class Cycler : public testing::Test {
 protected:
  simulated::TextElement& open(ElementKind kind = ElementKind::multiLine) {
    return session.desktop.openElement(kind, {}, {"org.example.notes"});
  }

  /// The document after each of a number of steps.
  std::vector<std::string> textsOfSteps(const simulated::TextElement& element, int steps) {
    std::vector<std::string> texts;
    for (int i = 0; i < steps; ++i) {
      EXPECT_TRUE(session.cycle());
      EXPECT_EQ(element.caret(), element.length());
      texts.push_back(element.text());
    }
    return texts;
  }

  ScriptedEnglish english{everydayScript()};
  CorrectingDesktop session{english.services()};
};

TEST_F(Cycler, AfterACorrectionGoesThroughTheCandidatesAndBackToTheTypedWord) {
  const auto& element = open();
  session.desktop.type("helo ");
  EXPECT_THAT(textsOfSteps(element, 5), ElementsAre("help ", "held ", "helo ", "hello ", "help "));
  EXPECT_EQ(session.cycler().record->axTarget,
            (AXReplacementTarget{session.cycler().record->axTarget->element, {0, 4}, {}}));
  EXPECT_EQ(session.engine.measurements().cycleKeyCount, 5);
}

TEST_F(Cycler, AfterAnOfferShowsTheTypedWordTwiceInTheRing) {
  const auto& element = open();
  session.desktop.type("hekp ");
  EXPECT_THAT(textsOfSteps(element, 5), ElementsAre("help ", "keep ", "hekp ", "hekp ", "help "));
}

TEST_F(Cycler, AfterAManualPickStartsAtThePickedOne) {
  const auto& element = open();
  session.desktop.type("helo");
  session.pick("held");
  EXPECT_THAT(textsOfSteps(element, 4), ElementsAre("hello", "help", "helo", "held"));
}

TEST_F(Cycler, WithoutATargetTypesTheWordAndItsBoundaryAnew) {
  const auto& element = open(ElementKind::withoutAccessibility);
  session.desktop.type("helo.");
  EXPECT_THAT(textsOfSteps(element, 4), ElementsAre("help.", "held.", "helo.", "hello."));
  session.desktop.type(" helo");
  session.pick("held");
  EXPECT_THAT(textsOfSteps(element, 2), ElementsAre("hello. hello", "hello. help"));
}

TEST_F(Cycler, ReplacesInPlaceAndLeavesTheCaretAtTheEndOfTheText) {
  auto& element = session.desktop.openElement(ElementKind::multiLine, "😀  then 😀");
  element.placeCaret(3);
  session.desktop.type("helo ");
  ASSERT_EQ(element.text(), "😀 hello  then 😀");
  EXPECT_THAT(textsOfSteps(element, 1), ElementsAre("😀 help  then 😀"));
}

TEST_F(Cycler, ReportsEveryStepBeforeTheDocumentChanges) {
  const auto& element = open();
  session.desktop.type("helo ");
  std::vector<std::string> steps;
  session.cycler().onCycle = [&](const std::string& before, const std::string& after) {
    steps.push_back(before + '>' + after + " in " + element.text());
  };
  textsOfSteps(element, 2);
  EXPECT_THAT(steps, ElementsAre("hello>help in hello ", "help>held in help "));
}

TEST_F(Cycler, DoesNothingWithoutARecordOrWithCorrectionsOff) {
  const auto& element = open();
  EXPECT_FALSE(session.cycle());
  session.desktop.type("helo ");
  session.settings.setIsAutoCorrectionEnabled(false);
  EXPECT_FALSE(session.cycle());
  session.settings.setIsAutoCorrectionEnabled(true);
  session.settings.setDisabledAppBundleIDs({"org.example.notes"});
  EXPECT_FALSE(session.cycle());
  EXPECT_EQ(element.text(), "hello ");
  EXPECT_TRUE(session.cycler().record);
  EXPECT_EQ(session.engine.measurements().cycleKeyCount, 0);
}

}  // namespace
}  // namespace mirvane
