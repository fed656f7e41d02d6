#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/correcting_desktop.h"
#include "support/scripted_english.h"

namespace mirvane {
namespace {

using simulated::ElementKind;
using testing::ElementsAre;
using testing::IsEmpty;

class UnusualFields : public testing::Test {
 protected:
  simulated::TextElement& open(ElementKind kind, bool isOwn = false) {
    return session.desktop.openElement(kind, {}, {.isOwn = isOwn});
  }

  ScriptedEnglish english{everydayScript()};
  CorrectingDesktop session{english.services()};
};

TEST_F(UnusualFields, ThatIgnoreWritesStayAsTypedButTheCorrectionIsLogged) {
  const auto& element = open(ElementKind::ignoresAccessibilityWrites);
  session.desktop.type("helo ");
  EXPECT_EQ(element.text(), "helo ");
  EXPECT_EQ(element.caret(), 5);
  EXPECT_THAT(session.log(), ElementsAre("helo>hello auto-other 0.85"));
  EXPECT_TRUE(session.cycler().record->axTarget);
  EXPECT_TRUE(session.cycle());
  EXPECT_EQ(element.text(), "helo ");
  EXPECT_EQ(session.cycler().record->currentText, "help") << "the record moves on all the same";
}

TEST_F(UnusualFields, WithoutAccessibilityAreCorrectedByKeys) {
  const auto& element = open(ElementKind::withoutAccessibility);
  session.desktop.type("say helo ");
  EXPECT_EQ(element.text(), "say hello ");
  EXPECT_EQ(session.postedBackspaces(), 5);
  EXPECT_EQ(session.desktop.poster().posted().size(), 12U) << "the text comes as one key";
  EXPECT_FALSE(session.cycler().record->axTarget);
  EXPECT_EQ(session.engine.measurements().rawInputLog, "say helo ") << "its own keys do not count";
}

TEST_F(UnusualFields, WithoutAccessibilityGetTheirReturnTypedBack) {
  const auto& element = open(ElementKind::withoutAccessibility);
  session.desktop.type("helo\nteh\n");
  EXPECT_EQ(element.text(), "hello\nthe\n");
}

TEST_F(UnusualFields, WithoutAccessibilityTakeTheApostropheAsPartOfTheWord) {
  const auto& element = open(ElementKind::withoutAccessibility);
  session.desktop.type("helo' ");
  EXPECT_EQ(element.text(), "helo' ");
  EXPECT_THAT(session.log(), IsEmpty());
}

TEST_F(UnusualFields, LosingAccessibilityInMidWordAreCorrectedByKeys) {
  const auto& element = open(ElementKind::multiLine);
  session.desktop.type("he");
  session.desktop.accessibility().setTrusted(false);
  session.desktop.type("lo ");
  EXPECT_EQ(element.text(), "hello ");
  EXPECT_EQ(session.postedBackspaces(), 5);
  EXPECT_FALSE(session.cycler().record->axTarget);
}

TEST_F(UnusualFields, ForPasswordsAreNeverTypedInto) {
  const auto& own = open(ElementKind::password, true);
  session.desktop.type("helo ");
  EXPECT_EQ(own.text(), "helo ");
  EXPECT_THAT(session.log(), ElementsAre("helo>hello auto-other 0.85")) << "failed, yet reported";
  EXPECT_THAT(session.desktop.poster().posted(), IsEmpty());
  EXPECT_FALSE(session.cycler().record->axTarget);
}

TEST_F(UnusualFields, ForPasswordsOfOthersAreNotEvenSeen) {
  const auto& element = open(ElementKind::password);
  session.desktop.type("helo ");
  EXPECT_EQ(element.text(), "helo ");
  EXPECT_EQ(session.engine.measurements().keystrokeCount, 0);
}

TEST_F(UnusualFields, UnderSecureInputHeldElsewhereAreWrittenButNotTypedInto) {
  session.desktop.secureInput().setHeldElsewhere(true);
  const auto& readable = open(ElementKind::multiLine, true);
  session.desktop.type("helo ");
  EXPECT_EQ(readable.text(), "hello ") << "accessibility types no keys";
  const auto& unreadable = open(ElementKind::withoutAccessibility, true);
  session.desktop.type("helo ");
  EXPECT_EQ(unreadable.text(), "helo ");
  EXPECT_THAT(session.desktop.poster().posted(), IsEmpty());
  EXPECT_EQ(session.log().size(), 2U);
}

}  // namespace
}  // namespace mirvane
