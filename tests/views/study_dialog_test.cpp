#include "views/study_dialog.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include "tests/views/study_world.h"

namespace mirvane {
namespace {

using Role = StudyDialog::ChoiceRole;

class Dialog : public ::testing::Test {
 protected:
  void open(const QString& text = QStringLiteral("You can still save it.")) {
    dialog = new StudyDialog(
        {QStringLiteral("exclamationmark.triangle.fill"), QStringLiteral("Not saved yet"), text},
        &window);
    discard = dialog->addChoice(QStringLiteral("Discard"), Role::other,
                                [this] { chosen << QStringLiteral("Discard"); });
    keep = dialog->addChoice(QStringLiteral("Keep"), Role::safe,
                             [this] { chosen << QStringLiteral("Keep"); });
    window.show();
    dialog->open();
    QCoreApplication::processEvents();
    if (isPastFirstSecond) endPressGuards(*dialog);
  }

  QWidget window;
  QPointer<StudyDialog> dialog;
  bool isPastFirstSecond = true;
  QAbstractButton* discard = nullptr;
  QAbstractButton* keep = nullptr;
  QStringList chosen;
};

TEST_F(Dialog, OffersLargeChoicesFarApart) {
  open();
  EXPECT_GE(discard->height(), 44);
  EXPECT_GE(keep->height(), 44);
  EXPECT_GE(keep->geometry().top() - discard->geometry().bottom() - 1, 16);
}

TEST_F(Dialog, IsADialogWithNameAndDescriptionToAScreenReader) {
  open();
  auto* const seen = QAccessible::queryAccessibleInterface(dialog.data());
  EXPECT_EQ(seen->role(), QAccessible::Dialog);
  EXPECT_EQ(seen->text(QAccessible::Name), "Not saved yet");
  EXPECT_EQ(seen->text(QAccessible::Description), "You can still save it.");
}

/// The safe choice has the focus, is what Escape and closing mean, and is asked for once.
TEST_F(Dialog, EscapeClosingAndTheFocusedKeyMeanTheSafeChoice) {
  const std::vector<std::function<void()>> ways{
      [this] { QTest::keyClick(dialog->focusWidget(), Qt::Key_Escape); },
      [this] { QTest::keyClick(dialog->focusWidget(), Qt::Key_Return); },
      [this] { QTest::keyClick(dialog->focusWidget(), Qt::Key_Space); },
      [this] { dialog->close(); }};
  for (const auto& way : ways) {
    chosen.clear();
    open();
    way();
    EXPECT_EQ(chosen, QStringList{"Keep"});
    EXPECT_FALSE(dialog && dialog->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(dialog.isNull());
  }
}

TEST_F(Dialog, TakesNoPressThatWasMeantForWhatItCovers) {
  isPastFirstSecond = false;
  open();
  QTest::mouseClick(discard, Qt::LeftButton);
  QTest::keyClick(keep, Qt::Key_Space);
  EXPECT_TRUE(chosen.isEmpty());
  EXPECT_TRUE(dialog->isVisible());
}

TEST_F(Dialog, TabReachesTheOtherChoice) {
  open();
  QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(dialog->focusWidget(), discard);
  QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(chosen, QStringList{"Discard"});
}

TEST_F(Dialog, ScrollsALongTextByKeyAndKeepsItsChoicesOnTheScreen) {
  open(QStringLiteral("A line that is quite long, as such lines are. ").repeated(200));
  const auto screen = dialog->screen()->availableGeometry();
  EXPECT_LE(dialog->height(), screen.height());
  EXPECT_LE(keep->geometry().bottom(), dialog->height());
  const auto* const bar = part<QScrollArea>(*dialog, "dialogTexts").verticalScrollBar();
  EXPECT_EQ(bar->value(), 0);
  QTest::keyClick(dialog->focusWidget(), Qt::Key_PageDown);
  EXPECT_GT(bar->value(), 0);
  QTest::keyClick(dialog->focusWidget(), Qt::Key_End);
  EXPECT_EQ(bar->value(), bar->maximum());
  EXPECT_EQ(dialog->focusWidget(), keep);
}

}  // namespace
}  // namespace mirvane
