#include <gmock/gmock.h>

#include <QPushButton>

#include "tests/views/study_world.h"
#include "views/accessibility_required_gate_view.h"
#include "views/intro_view.h"
#include "views/mirvane_rule_row.h"
#include "views/step_tile.h"
#include "views/study_problem_view.h"
#include "views/symbol.h"

namespace mirvane {
namespace {

TEST(Gate, PromptsAndOpensTheSettings) {
  StudyWorld world;
  AccessibilityRequiredGateView gate(world.desktop.accessibility(), world.desktop.workspace(),
                                     theme::deep());
  EXPECT_EQ(shownTexts(gate),
            (QStringList{"Accessibility required", "Enable accessibility access to use Mirvane."}));
  part<QPushButton>(gate, "allowButton").click();
  EXPECT_EQ(world.desktop.accessibility().promptCount(), 1);
  part<QPushButton>(gate, "settingsButton").click();
  EXPECT_THAT(world.desktop.workspace().openedUrls(),
              ::testing::ElementsAre(accessibilitySettingsUrl));
  EXPECT_EQ(shownTexts(gate).size(), 2);
}

TEST(Gate, SaysWhenThereAreNoSettingsToOpen) {
  StudyWorld world;
  world.desktop.workspace().setCannotOpenUrls(true);
  AccessibilityRequiredGateView gate(world.desktop.accessibility(), world.desktop.workspace(),
                                     theme::deep());
  part<QPushButton>(gate, "settingsButton").click();
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
