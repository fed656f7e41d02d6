#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include "tests/views/study_world.h"
#include "views/window_frame.h"

namespace mirvane {
namespace {

/// Nothing of a text may be cut off: it has the height its width asks for, inside its window.
void expectNothingClipped(const QWidget& window, const std::string& where) {
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (!label->isVisible() || label->text().isEmpty()) continue;
    const auto what = where + ": " + label->text().toStdString();
    const int wanted =
        label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
    EXPECT_GE(label->height(), wanted) << what;
    const int widest = label->wordWrap() ? 0 : label->sizeHint().width();
    EXPECT_GE(label->width(), widest) << what;
  }
  for (const auto* button : window.findChildren<QPushButton*>()) {
    if (!button->isVisible()) continue;
    EXPECT_GE(button->width(), button->sizeHint().width()) << where << button->objectName().data();
    EXPECT_GE(button->height(), 44);
  }
}

void lengthenTexts(const QWidget& window) {
  for (auto* label : window.findChildren<QLabel*>()) {
    if (label->text().size() > 2)
      label->setText(label->text() +
                     label->text().left(std::max<qsizetype>(2, label->text().size() * 3 / 10)));
  }
  for (auto* button : window.findChildren<QPushButton*>()) {
    button->setText(button->text() + button->text().left(button->text().size() * 3 / 10));
  }
}

void settle() {
  for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
}

/// No screen may need to be scrolled sideways.
void expectNoSidewaysScrolling(const QWidget& window, const std::string& where) {
  for (const auto* area : window.findChildren<QScrollArea*>()) {
    if (!area->isVisible() || area->widget() == nullptr) continue;
    EXPECT_LE(area->widget()->width(), area->viewport()->width()) << where;
  }
}

TEST(Screens, FitTheSmallestWindowWithLongerTexts) {
  StudyWorld world;
  const auto flow = world.openFlow();
  flow->resize(760, 600);
  for (std::size_t step = 0; step < appSteps.size(); ++step) {
    settle();
    const auto where = "step " + std::to_string(step);
    expectNothingClipped(*flow, where);
    lengthenTexts(*flow);
    settle();
    expectNothingClipped(*flow, where + ", longer");
    expectNoSidewaysScrolling(*flow, where);
    EXPECT_EQ(flow->size(), QSize(760, 600)) << where;
    flow->advance();
  }
}

/// What is left of a screen of 1024 x 600, of 1366 x 768 at 150 % and of 1920 x 1080 at 200 %, with
/// a title bar and a panel.
TEST(Screens, KeepThePrimaryButtonOnASmallScreen) {
  for (const QSize room : {QSize(1008, 520), QSize(894, 440), QSize(944, 460)}) {
    StudyWorld world;
    const auto flow = world.openFlow();
    flow->setMinimumSize(0, 0);
    flow->resize(room);
    for (const char* name :
         {"startButton", "startSessionButton", "doneButton", "doneButton", "saveButton"}) {
      settle();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      const auto where = std::string(name) + " at " + std::to_string(room.height());
      const auto& button = part<QPushButton>(*flow, name);
      const QRect place(button.mapTo(flow.get(), QPoint()), button.size());
      EXPECT_TRUE(flow->rect().contains(place)) << where;
      EXPECT_EQ(button.visibleRegion().boundingRect(), button.rect()) << where;
      EXPECT_EQ(flow->size(), room) << where;
      expectNothingClipped(*flow, where);
      flow->advance();
    }
  }
}

TEST(Screens, GiveTheSmallestWindowUpWhereTheScreenIsSmaller) {
  StudyWorld world;
  const auto flow = world.openFlow();
  const QSize room = roomOnScreen(*flow);
  EXPECT_EQ(flow->minimumSize(), QSize(760, 600).boundedTo(room));
  QWidget wide;
  keepOnScreen(wide, {100000, 300});
  EXPECT_EQ(wide.minimumSize(), QSize(room.width(), 300));
}

TEST(Screens, ScrollTheIntroByKeyWhileStartHasTheFocus) {
  StudyWorld world;
  const auto flow = world.openFlow();
  flow->setMinimumSize(0, 0);
  flow->resize(894, 360);
  settle();
  auto& start = part<QPushButton>(*flow, "startButton");
  const auto& bar = *flow->findChild<QScrollArea*>()->verticalScrollBar();
  ASSERT_GT(bar.maximum(), 0);
  QTest::keyClick(&start, Qt::Key_PageDown);
  const int page = bar.value();
  EXPECT_GT(page, 0);
  QTest::keyClick(&start, Qt::Key_Up);
  EXPECT_LT(bar.value(), page);
  EXPECT_TRUE(start.hasFocus());
}

/// The names of what Tab reaches, until it comes round to the first one.
QStringList tabOrder() {
  QStringList order;
  while (order.isEmpty() || order.first() != QApplication::focusWidget()->objectName()) {
    order << QApplication::focusWidget()->objectName();
    if (order.size() > 20) break;
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  return order;
}

TEST(Screens, ReachEveryControlByTabInReadingOrder) {
  StudyWorld world;
  const auto flow = world.openFlow();
  flow->activateWindow();
  flow->advance();
  flow->advance();
  settle();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(tabOrder(), (QStringList{"typingField", "doneButton", "resetButton"}));
}

TEST(Screens, TakeAClickAnywhereInTheFrameOfTheField) {
  StudyWorld world;
  const auto flow = world.openFlow();
  flow->activateWindow();
  flow->advance();
  settle();
  auto& field = part<QLineEdit>(*flow, "practiceField");
  field.setText(QStringLiteral("hello"));
  auto& frame = *field.parentWidget();
  ASSERT_GE(frame.height(), 44);
  for (const QPoint place : {QPoint(2, 2), frame.rect().bottomLeft() + QPoint(2, -2)}) {
    field.setCursorPosition(5);
    field.clearFocus();
    QTest::mouseClick(&frame, Qt::LeftButton, {}, place);
    EXPECT_TRUE(field.hasFocus());
    EXPECT_EQ(field.cursorPosition(), 0);
  }
}

}  // namespace
}  // namespace mirvane
