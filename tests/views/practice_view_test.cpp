#include "views/practice_view.h"

#include <gtest/gtest.h>

#include <QPushButton>

#include "tests/views/study_world.h"
#include "views/checklist_row.h"

namespace mirvane {
namespace {

class Practice : public ::testing::Test {
 protected:
  Practice() { view.show(); }
  void TearDown() override { view.hide(); }

  /// Types into the screen's field and, as the same keys, into what the engine sees.
  void type(const char* text) {
    field.insert(QString::fromUtf8(text));
    world.desktop.type(text);
  }

  [[nodiscard]] std::string ticks() const {
    std::string result;
    for (const char* name : {"didTypeWord", "didPressSpace", "didCycleSuggestion"}) {
      result += part<ChecklistRow>(view, name).isDone() ? 'x' : '-';
    }
    return result;
  }

  StudyWorld world;
  EngineServices services = world.services();
  int started = 0;
  PracticeView view{{services, world.cycleKeyMonitor, world.desktop.monitors(),
                     world.desktop.tasks(), QStringLiteral("helo"), [this] { ++started; },
                     theme::deep(), theme::sky()}};
  QLineEdit& field = part<QLineEdit>(view, "practiceField");
  QPushButton& start = part<QPushButton>(view, "startSessionButton");
};

TEST_F(Practice, EnablesTheStartOnceAllThreeRowsAreTicked) {
  EXPECT_EQ(ticks(), "---");
  type("helo");
  EXPECT_EQ(ticks(), "x--");
  type(" ");
  EXPECT_EQ(ticks(), "xx-");
  start.click();
  EXPECT_EQ(started, 0);
  world.strikeCycleKey();
  EXPECT_EQ(ticks(), "xxx");
  start.click();
  EXPECT_EQ(started, 1);
}

TEST_F(Practice, TicksNoWordForSpacesAlone) {
  type("  ");
  EXPECT_EQ(ticks(), "-x-");
}

TEST_F(Practice, TicksSpaceWhereverItIsPressed) {
  world.desktop.type(" ");
  EXPECT_EQ(field.text(), "");
  EXPECT_EQ(ticks(), "-x-");
}

TEST_F(Practice, TicksNoCyclingBeforeAWordWasCorrected) {
  world.strikeCycleKey();
  type("hel");
  world.strikeCycleKey();
  EXPECT_EQ(ticks(), "x--");
}

TEST_F(Practice, KeepsTicksWhenTheTextIsDeleted) {
  type("helo ");
  field.clear();
  EXPECT_EQ(ticks(), "xx-");
}

TEST_F(Practice, InstallsItsMonitorsOnceAndTakesThemAway) {
  const auto monitors = world.desktop.monitors().count();
  view.hide();
  EXPECT_EQ(world.desktop.monitors().count(), 0U);
  view.show();
  EXPECT_EQ(world.desktop.monitors().count(), monitors);
}

TEST_F(Practice, ShowsTheDemonstration) {
  const auto texts = shownTexts(view);
  for (const char* text :
       {"Practice: Cycle Key", "Try the controls before the real sessions", "Word-only practice",
        "Type one word, press Space, then use Right Option ⌥ to cycle candidates.",
        "On this keyboard: the right Alt key", "1. Type one word", "helo", "2. Press Space",
        "hello", "help", "helm", "3. Right Option ⌥", "⌥", "Checklist", "Type one word",
        "Press Space", "Use Right Option ⌥"}) {
    EXPECT_TRUE(texts.contains(QString::fromUtf8(text))) << text;
  }
}

}  // namespace
}  // namespace mirvane
