#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

#include "tests/views/study_world.h"

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

}  // namespace
}  // namespace mirvane
