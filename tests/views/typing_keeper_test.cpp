#include "views/typing_keeper.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include "tests/views/study_world.h"
#include "views/mirvane_primary_button.h"

namespace mirvane {
namespace {

class KeptTyping : public ::testing::Test {
 protected:
  KeptTyping() {
    auto* const column = new QVBoxLayout(&screen);
    column->addWidget(field);
    column->addStretch(1);
    column->addWidget(done);
    screen.resize(600, 400);
    new TypingKeeper(screen, *field);
    screen.show();
    screen.activateWindow();
    field->setFocus();
    QCoreApplication::processEvents();
    strike(Qt::Key_Tab);
  }

  /// As the window gets it, not a widget in it.
  void strike(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(screen.windowHandle(), key, modifiers);
  }

  void letTheFocusRest() {
    part<QTimer>(screen, focusRestTimer).start(0);
    QCoreApplication::processEvents();
  }

  QWidget screen;
  int pressed = 0;
  QLineEdit* field = new QLineEdit(&screen);
  MirvanePrimaryButton* done = new MirvanePrimaryButton(
      QStringLiteral("Done"), {}, theme::deep(), [this] { ++pressed; }, &screen);
};

TEST_F(KeptTyping, GoesOnInTheFieldAfterAStrayTab) {
  ASSERT_TRUE(done->hasFocus());
  strike(Qt::Key_Space);
  strike(Qt::Key_A);
  strike(Qt::Key_Space);
  EXPECT_EQ(field->text(), QStringLiteral(" a "));
  EXPECT_TRUE(field->hasFocus());
  EXPECT_EQ(pressed, 0);
}

TEST_F(KeptTyping, TakesLettersFromAChosenButtonToo) {
  letTheFocusRest();
  strike(Qt::Key_A);
  strike(Qt::Key_Space);
  EXPECT_EQ(field->text(), QStringLiteral("a "));
  EXPECT_EQ(pressed, 0);
}

TEST_F(KeptTyping, LeavesReturnAndTheSpaceOfAChoiceToTheButton) {
  strike(Qt::Key_Return);
  EXPECT_EQ(pressed, 1);
  letTheFocusRest();
  strike(Qt::Key_Space);
  EXPECT_EQ(pressed, 2);
  EXPECT_EQ(field->text(), QString());
  EXPECT_TRUE(done->hasFocus());
}

TEST_F(KeptTyping, ForgetsAChoiceWhenTheFocusMoves) {
  letTheFocusRest();
  field->setFocus();
  strike(Qt::Key_Tab);
  ASSERT_TRUE(done->hasFocus());
  strike(Qt::Key_Space);
  EXPECT_EQ(pressed, 0);
  EXPECT_EQ(field->text(), QStringLiteral(" "));
}

TEST_F(KeptTyping, LeavesCommandsAndOtherWindowsAlone) {
  strike(Qt::Key_A, Qt::ControlModifier);
  strike(Qt::Key_Escape);
  strike(Qt::Key_Backspace);
  EXPECT_TRUE(done->hasFocus());
  QLineEdit other;
  other.show();
  other.activateWindow();
  other.setFocus();
  QCoreApplication::processEvents();
  QTest::keyClick(other.windowHandle(), Qt::Key_A);
  EXPECT_EQ(other.text(), QStringLiteral("a"));
  EXPECT_EQ(field->text(), QString());
}

TEST_F(KeptTyping, SaysHowTheButtonIsPressedWhileItHasTheFocus) {
  const auto& hint = part<TextLabel>(screen, "keyboardHint");
  EXPECT_TRUE(hint.isVisible());
  EXPECT_EQ(hint.text(), "Return presses this button. Letters go on into your text.");
  auto* const accessible = QAccessible::queryAccessibleInterface(done);
  EXPECT_TRUE(accessible->text(QAccessible::Description).contains(hint.text()));
  EXPECT_TRUE(screen.rect().contains(hint.geometry()));
  EXPECT_FALSE(hint.geometry().intersects(done->geometry()));
  letTheFocusRest();
  EXPECT_EQ(hint.text(), "Return or Space presses this button. Letters go on into your text.");
  field->setFocus();
  EXPECT_FALSE(hint.isVisible());
  EXPECT_EQ(accessible->text(QAccessible::Description), QString());
}

}  // namespace
}  // namespace mirvane
