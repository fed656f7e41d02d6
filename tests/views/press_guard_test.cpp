#include "views/press_guard.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QPushButton>
#include <QTest>

#include "tests/views/study_world.h"
#include "views/bordered_button.h"
#include "views/mirvane_primary_button.h"

namespace mirvane {
namespace {

class Guarded : public ::testing::Test {
 protected:
  Guarded() {
    button.setFixedSize(200, 50);
    window.show();
    window.activateWindow();
    button.setFocus();
    QCoreApplication::processEvents();
  }

  [[nodiscard]] QAccessibleInterface& accessible() {
    return *QAccessible::queryAccessibleInterface(&button);
  }

  void pressInEveryWay() {
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseDClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Space);
    accessible().actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTest::qWait(150);  // assistive technology shows the button pressed for a tenth of a second
  }

  QWidget window;
  int pressed = 0;
  MirvanePrimaryButton button{
      QStringLiteral("Go on"), {}, theme::deep(), [this] { ++pressed; }, &window};
};

TEST_F(Guarded, TakesNoPressUntilTheWaitIsOverAndKeepsTheFocus) {
  ASSERT_TRUE(button.hasFocus());
  guardPresses(window);
  pressInEveryWay();
  EXPECT_EQ(pressed, 0);
  EXPECT_TRUE(button.hasFocus());
  endPressGuards(window);
  QTest::keyClick(&button, Qt::Key_Return);
  EXPECT_EQ(pressed, 1);
  pressInEveryWay();
  EXPECT_EQ(pressed, 5) << "of the double click one press counts";
}

TEST_F(Guarded, ShowsAndTellsThatItIsNotReady) {
  const auto lightness = [&] { return button.grab().toImage().pixelColor(20, 25).lightness(); };
  const int ready = lightness();
  guardPresses(window);
  EXPECT_GT(lightness(), ready + 30);
  EXPECT_TRUE(accessible().state().disabled);
  EXPECT_TRUE(accessible().state().focused);
  EXPECT_EQ(accessible().text(QAccessible::Name), "Go on");
  endPressGuards(window);
  EXPECT_EQ(lightness(), ready);
  EXPECT_FALSE(accessible().state().disabled);
}

TEST_F(Guarded, DoesNotTakeTheEndOfAPressBegunDuringTheWait) {
  guardPresses(window);
  QTest::keyPress(&button, Qt::Key_Return);
  QTest::mousePress(&button, Qt::LeftButton);
  endPressGuards(window);
  QTest::keyRelease(&button, Qt::Key_Return);
  QTest::mouseRelease(&button, Qt::LeftButton);
  EXPECT_EQ(pressed, 0);
}

TEST_F(Guarded, BecomesReadyByItself) {
  guardPresses(window);
  EXPECT_FALSE(button.isReady());
  EXPECT_TRUE(QTest::qWaitFor([this] { return button.isReady(); }, 10000));
}

TEST(GuardedFlow, GuardsEveryScreenThatReplacesAnother) {
  StudyWorld world;
  const auto flow = world.openFlow();
  EXPECT_TRUE(part<MirvanePrimaryButton>(*flow, "startButton").isReady());
  for (const char* name : {"startSessionButton", "doneButton", "doneButton", "saveButton"}) {
    flow->advance();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    auto& primary = part<MirvanePrimaryButton>(*flow, name);
    EXPECT_FALSE(primary.isReady()) << name;
    endPressGuards(*flow);
    EXPECT_TRUE(primary.isReady()) << name;
  }
  const auto& allow = part<BorderedButton>(*flow, "allowButton");
  world.desktop.accessibility().setTrusted(false);
  ASSERT_TRUE(QTest::qWaitFor([&] { return allow.isVisible(); }, 3000));
  EXPECT_FALSE(allow.isReady());
  world.desktop.accessibility().setTrusted(true);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !allow.isVisible(); }, 3000));
  EXPECT_FALSE(part<MirvanePrimaryButton>(*flow, "saveButton").isReady());
}

}  // namespace
}  // namespace mirvane
