#include <gmock/gmock.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "tests/views/study_world.h"
#include "views/accessibility_required_gate_view.h"
#include "views/intro_view.h"
#include "views/mirvane_rule_row.h"
#include "views/step_tile.h"
#include "views/study_dialog.h"
#include "views/study_problem_view.h"
#include "views/symbol.h"

namespace mirvane {
namespace {

class Gate : public ::testing::Test {
 protected:
  Gate() {
    world.desktop.accessibility().setTrusted(false);
    gate.show();
  }

  [[nodiscard]] bool isTrusted() { return world.desktop.accessibility().isProcessTrusted(); }

  StudyDialog& ask(bool isPastFirstSecond = true) {
    part<QPushButton>(gate, "allowButton").click();
    auto& dialog = part<StudyDialog>(gate, "consentDialog");
    if (isPastFirstSecond) endPressGuards(dialog);
    return dialog;
  }

  static QPushButton& choice(const StudyDialog& dialog, const QString& text) {
    for (auto* const button : dialog.findChildren<QPushButton*>()) {
      if (button->text() == text) return *button;
    }
    throw std::runtime_error("no such choice");
  }

  StudyWorld world;
  AccessibilityRequiredGateView gate{world.desktop.accessibility(), world.desktop.workspace(),
                                     OtherPrograms::watched, theme::deep(), [] {}};
};

TEST_F(Gate, AsksInPlainWordsAndTakesAYes) {
  EXPECT_EQ(shownTexts(gate),
            (QStringList{"Accessibility required", "Enable accessibility access to use Mirvane."}));
  auto& dialog = ask();
  EXPECT_EQ(dialog.accessibleName(), "Allow this application to use accessibility?");
  const auto text = part<QLabel>(dialog, "dialogText").text();
  EXPECT_TRUE(text.contains(otherProgramsNotice(OtherPrograms::watched)));
  EXPECT_TRUE(text.contains("Password fields and terminals are always left out."));
  EXPECT_FALSE(isTrusted());
  choice(dialog, QStringLiteral("Allow")).click();
  EXPECT_TRUE(isTrusted());
}

TEST_F(Gate, SaysThatOtherProgramsAreLeftAloneWhereTheyAre) {
  const auto text = otherProgramsConsent(OtherPrograms::leftAlone);
  EXPECT_EQ(text, otherProgramsNotice(OtherPrograms::leftAlone));
}

TEST_F(Gate, TakesNeitherANoNorEscapeNorAHastyPressForAYes) {
  choice(ask(), QStringLiteral("Don't Allow")).click();
  EXPECT_FALSE(isTrusted());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ask().reject();
  EXPECT_FALSE(isTrusted());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  auto& dialog = ask(false);
  QTest::mouseClick(&choice(dialog, QStringLiteral("Allow")), Qt::LeftButton);
  EXPECT_FALSE(isTrusted());
  EXPECT_TRUE(dialog.isVisible());
}

TEST_F(Gate, AsksOnceAndTakesItsQuestionAlong) {
  const auto& dialog = ask();
  part<QPushButton>(gate, "allowButton").click();
  EXPECT_EQ(gate.findChildren<StudyDialog*>().size(), 1);
  gate.hide();
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_FALSE(isTrusted());
}

TEST_F(Gate, SaysWhyItCouldNotBeSwitchedOn) {
  world.desktop.accessibility().setGrantFailure("Access denied");
  choice(ask(), QStringLiteral("Allow")).click();
  EXPECT_EQ(shownTexts(part<StudyDialog>(gate, "trustFailureDialog")),
            (QStringList{"Accessibility could not be switched on.", "Access denied"}));
}

TEST_F(Gate, OpensTheSettingsOrSaysThatThereAreNone) {
  auto& settings = part<QPushButton>(gate, "settingsButton");
  settings.click();
  EXPECT_THAT(world.desktop.workspace().openedUrls(),
              ::testing::ElementsAre(accessibilitySettingsUrl));
  EXPECT_EQ(shownTexts(gate).size(), 2);
  world.desktop.workspace().setCannotOpenUrls(true);
  settings.click();
  EXPECT_TRUE(shownTexts(gate).contains(
      "This desktop offers no accessibility settings to open. Choose Allow instead."));
}

TEST(Intro, StatesTheRulesInOrderEachWithItsSymbol) {
  const IntroView intro([] {}, theme::deep(), theme::sky());
  QStringList rules;
  for (const auto* row : intro.findChildren<MirvaneRuleRow*>()) {
    rules << row->findChild<Symbol*>()->objectName() + QLatin1Char(' ') + shownTexts(*row).first();
  }
  EXPECT_EQ(rules, (QStringList{"delete.left Do NOT use Backspace.",
                                "hand.raised.fill Let Mirvane handle corrections.",
                                "tortoise Type at your natural speed.",
                                "timer Do not slow down intentionally."}));
}

TEST(Intro, WarnsTheStudyTeamAboveAllElse) {
  IntroView plain([] {}, theme::deep(), theme::sky());
  EXPECT_EQ(plain.findChild<QWidget*>(QStringLiteral("studyWarnings")), nullptr);
  IntroView warning([] {}, theme::deep(), theme::sky(), {QStringLiteral("an example address")});
  EXPECT_TRUE(shownTexts(part<QWidget>(warning, "studyWarnings"))
                  .contains(QStringLiteral("an example address")));
}

TEST(StudyProblem, NamesEachProblemAndCloses) {
  bool isClosed = false;
  StudyProblemView view({QStringLiteral("a.json: line 3"), QStringLiteral("b.json: prompts")},
                        [&] { isClosed = true; });
  EXPECT_TRUE(shownTexts(view).contains(QStringLiteral("a.json: line 3")));
  EXPECT_TRUE(shownTexts(view).contains(QStringLiteral("b.json: prompts")));
  part<QPushButton>(view, "closeButton").click();
  EXPECT_TRUE(isClosed);
}

TEST(Intro, ShowsTheStepsFromLeftToRightAndStarts) {
  int started = 0;
  IntroView intro([&] { ++started; }, theme::deep(), theme::sky());
  intro.resize(570, 600);
  intro.ensurePolished();
  QStringList steps;
  for (const auto* tile : intro.findChildren<StepTile*>()) {
    const auto badges = tile->findChildren<QWidget*>();
    steps << badges.first()->accessibleName() + QLatin1Char(' ') +
                 shownTexts(*tile).join(QLatin1Char('/'));
  }
  EXPECT_EQ(steps, (QStringList{"P Practice/Try controls", "1 Session 1/Auto-correct",
                                "2 Session 2/Cycle key ⌥", "R Results/Save & send"}));
  part<QPushButton>(intro, "startButton").click();
  EXPECT_EQ(started, 1);
}

}  // namespace
}  // namespace mirvane
