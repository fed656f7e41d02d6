#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "tests/views/study_world.h"
#include "views/app_step.h"
#include "views/mirvane_logo.h"
#include "views/mirvane_page_header.h"
#include "views/mirvane_primary_button.h"
#include "views/mirvane_step_sidebar.h"
#include "views/step_row.h"
#include "views/symbol.h"

namespace mirvane {
namespace {

TEST(AppSteps, GoForwardAndKnowNoOtherValues) {
  EXPECT_EQ(appStepFromRawValue(0), AppStep::intro);
  EXPECT_EQ(appStepFromRawValue(4), AppStep::results);
  EXPECT_EQ(appStepFromRawValue(5), std::nullopt);
  EXPECT_EQ(appStepFromRawValue(-1), std::nullopt);
  EXPECT_EQ(stepAfter(AppStep::practice), AppStep::session1);
  EXPECT_EQ(stepAfter(AppStep::results), std::nullopt);
}

TEST(Symbols, AreDrawnInOneColourWithTheirHoles) {
  for (const char* name :
       {"info.circle.fill", "text.quote", "exclamationmark.triangle.fill", "arrow.right",
        "checkmark", "arrow.down.circle.fill", "checkmark.circle.fill", "circle", "chevron.right",
        "delete.left", "hand.raised.fill", "tortoise", "timer", "bolt.fill", "keyboard", "space",
        "arrow.2.circlepath", "checkmark.circle", "lightbulb.fill"}) {
    const QImage image = tintedSymbol(QLatin1String(name), 24, Qt::red, 2).toImage();
    EXPECT_EQ(image.width(), 48) << name;
    int drawn = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor pixel = image.pixelColor(x, y);
        if (pixel.alpha() < 200) continue;
        ++drawn;
        EXPECT_EQ(pixel.rgb(), QColor(Qt::red).rgb()) << name;
      }
    }
    EXPECT_GT(drawn, 20) << name;
  }
  const auto tick = tintedSymbol(QStringLiteral("info.circle.fill"), 24, Qt::red, 1).toImage();
  EXPECT_EQ(tick.pixelColor(6, 12).alpha(), 255);
  EXPECT_LT(tick.pixelColor(12, 14).alpha(), 60);
}

TEST(Logo, DrawsItsBarsToScale) {
  MirvaneLogo logo(44, 10, Qt::black, Qt::black);
  const QImage image = logo.grab().toImage();
  const auto isBar = [&](int x, int y) { return image.pixelColor(x, y).lightness() > 200; };
  // Bars of 22, 16 and 8, each 6 high and 6 apart, from the same left edge.
  const int middles[] = {10, 22, 34};
  const int lengths[] = {22, 16, 8};
  for (int bar = 0; bar < 3; ++bar) {
    EXPECT_TRUE(isBar(13, middles[bar]));
    EXPECT_TRUE(isBar(11 + lengths[bar] - 2, middles[bar]));
    EXPECT_FALSE(isBar(11 + lengths[bar] + 1, middles[bar]));
    EXPECT_FALSE(isBar(13, middles[bar] + 6));
  }
}

TEST(PageHeader, ShowsASubtitleOnlyWhenThereIsOne) {
  EXPECT_EQ(shownTexts(MirvanePageHeader(QStringLiteral("Title"))), QStringList{"Title"});
  EXPECT_EQ(shownTexts(MirvanePageHeader(QStringLiteral("Title"), QStringLiteral("More"))),
            (QStringList{"Title", "More"}));
}

TEST(StepSidebar, HighlightsExactlyTheCurrentStep) {
  MirvaneStepSidebar sidebar(AppStep::intro, theme::deep());
  const auto rows = sidebar.findChildren<StepRow*>();
  ASSERT_EQ(rows.size(), 5);
  for (const auto step : appSteps) {
    sidebar.setCurrentStep(step);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(rows[i]->isCurrent(), i == static_cast<int>(step));
  }
  EXPECT_EQ(rows[4]->accessibleName(), QStringLiteral("Results, current step"));
}

class PrimaryButton : public ::testing::Test {
 protected:
  void pressReturn() {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier);
      QCoreApplication::sendEvent(&button, &event);
    }
  }

  [[nodiscard]] int lightness() { return button.grab().toImage().pixelColor(20, 25).lightness(); }

  int pressed = 0;
  MirvanePrimaryButton button{QStringLiteral("Start"), QStringLiteral("arrow.right"), theme::deep(),
                              [this] { ++pressed; }};
};

TEST_F(PrimaryButton, CallsItsActionByClickAndByReturn) {
  button.click();
  pressReturn();
  EXPECT_EQ(pressed, 2);
  EXPECT_EQ(button.height(), 50);
}

TEST_F(PrimaryButton, TakesADoubleClickForOne) {
  // As a window hands them on: the second press comes as a double click alone.
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                          QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
    const QPointF middle(button.rect().center());
    QMouseEvent event(type, middle, button.mapToGlobal(middle), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&button, &event);
  }
  EXPECT_EQ(pressed, 1);
}

TEST_F(PrimaryButton, DoesNothingAndIsPalerWhileDisabled) {
  const int enabled = lightness();
  button.setEnabled(false);
  button.click();
  pressReturn();
  EXPECT_EQ(pressed, 0);
  EXPECT_GT(lightness(), enabled + 30);
}

}  // namespace
}  // namespace mirvane
