#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "tests/views/painted_texts.h"
#include "tests/views/palettes.h"
#include "tests/views/study_world.h"
#include "views/mirvane_primary_button.h"
#include "views/rounded_button.h"
#include "views/rounded_card.h"
#include "views/study_dialog.h"
#include "views/text_label.h"

namespace mirvane {
namespace {

/// Every text of every screen, read where it stands, in each state of each button.
class Contrast : public ::testing::TestWithParam<int> {
 protected:
  void SetUp() override { QApplication::setPalette(palette.palette); }
  void TearDown() override { QApplication::setPalette(QPalette()); }

  void open() {
    flow = world.openFlow();
    flow->activateWindow();
  }

  void advanceTo(AppStep step) {
    while (flow->step() != step) flow->advance();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
  }

  static void expectReadable(QWidget& window, const std::string& where) {
    // A button that cannot be pressed yet is exempt, as a disabled one is.
    for (auto* const button : window.findChildren<RoundedButton*>()) button->setReady(true);
    const auto texts = paintedTexts(window);
    EXPECT_FALSE(texts.isEmpty()) << where;
    for (const auto& [text, contrast] : texts) {
      EXPECT_GE(contrast, 4.5) << where << ": " << text.toStdString();
    }
  }

  /// At rest, under the pointer, pressed and focused. What is disabled is exempt.
  static void expectReadableInAllStates(QWidget& window, const std::string& where) {
    expectReadable(window, where);
    for (auto* const button : window.findChildren<QPushButton*>()) {
      if (!button->isVisible() || !button->isEnabled()) continue;
      const auto name = where + ", " + button->text().toStdString();
      button->setAttribute(Qt::WA_UnderMouse);
      expectReadable(*button->window(), name + " under the pointer");
      button->setAttribute(Qt::WA_UnderMouse, false);
      button->setDown(true);
      expectReadable(*button->window(), name + " pressed");
      button->setDown(false);
      button->setFocus();
      expectReadable(*button->window(), name + " focused");
    }
  }

  [[nodiscard]] std::string where(const char* screen) const {
    return std::string(palette.name) + ", " + screen;
  }

  NamedPalette palette = palettes()[GetParam()];
  StudyWorld world;
  std::unique_ptr<AppFlowView> flow;
};

TEST_P(Contrast, OfTheIntro) {
  open();
  advanceTo(AppStep::intro);
  expectReadableInAllStates(*flow, where("intro"));
}

TEST_P(Contrast, OfThePracticeWithAndWithoutSuggestions) {
  open();
  advanceTo(AppStep::practice);
  auto& start = part<QPushButton>(*flow, "startSessionButton");
  start.hide();  // disabled, and so drawn faintly
  expectReadableInAllStates(*flow, where("practice"));
  part<QLineEdit>(*flow, "practiceField").insert(QStringLiteral("helo "));
  world.desktop.type("helo ");
  world.strikeCycleKey();
  start.show();
  expectReadableInAllStates(*flow, where("practised"));
}

TEST_P(Contrast, OfTheSessionsWithAndWithoutSuggestions) {
  open();
  for (const auto step : {AppStep::session1, AppStep::session2}) {
    advanceTo(step);
    const auto name = where(step == AppStep::session1 ? "session 1" : "session 2");
    expectReadableInAllStates(*flow, name);
    world.desktop.type(" helo");
    ASSERT_TRUE(part<QWidget>(*flow, "chip2").isVisible());
    part<QPlainTextEdit>(*flow, "typingField").setPlainText(QStringLiteral("helo"));
    part<QPlainTextEdit>(*flow, "typingField").selectAll();
    expectReadableInAllStates(*flow, name + " with chips");
  }
}

TEST_P(Contrast, OfTheResultsBeforeAndAfterSaving) {
  open();
  advanceTo(AppStep::results);
  expectReadableInAllStates(*flow, where("results"));
  part<MirvanePrimaryButton>(*flow, "saveButton")
      .setLabel(QStringLiteral("Saved ✓"), {}, theme::savedGreen());
  expectReadableInAllStates(*flow, where("saved"));
}

TEST_P(Contrast, OfTheDialogs) {
  open();
  auto* const dialog = new StudyDialog(
      {QStringLiteral("hand.raised.fill"), QStringLiteral("Title"), QStringLiteral("Text")},
      flow.get());
  dialog->addChoice(QStringLiteral("Safe"), StudyDialog::ChoiceRole::safe);
  dialog->addChoice(QStringLiteral("Other"), StudyDialog::ChoiceRole::other);
  dialog->open();
  expectReadableInAllStates(*dialog, where("dialog"));
}

TEST_P(Contrast, OfTheGate) {
  world.desktop.accessibility().setTrusted(false);
  world.desktop.workspace().setCannotOpenUrls(true);
  open();
  part<QPushButton>(*flow, "settingsButton").click();
  expectReadableInAllStates(*flow, where("gate"));
}

TEST_P(Contrast, IsLostByNoChangeOfTheDesktopsColours) {
  open();
  advanceTo(AppStep::session2);
  for (const auto& other : palettes()) {
    QApplication::setPalette(other.palette);
    QCoreApplication::processEvents();
    expectReadable(*flow, where(other.name));
  }
}

INSTANTIATE_TEST_SUITE_P(Palettes, Contrast, ::testing::Values(0, 1, 2));

TEST(PaintedTexts, FindATextThatIsTooPale) {
  RoundedCard card({.color = Qt::black, .fillOpacity = 0.5});
  card.resize(200, 60);
  TextLabel label(QStringLiteral("pale"), 14, QFont::Normal, theme::Tone::primary, &card);
  label.setFixedColor(Qt::lightGray);
  label.resize(100, 40);
  const auto texts = paintedTexts(card);
  ASSERT_EQ(texts.size(), 1);
  EXPECT_EQ(texts.first().text, "pale");
  EXPECT_LT(texts.first().contrast, 4.5);
  EXPECT_GT(texts.first().contrast, 1.5);
}

TEST(Theme, UsesAPaletteOfHighContrastAsItIs) {
  const QPalette palette = highContrastPalette();
  EXPECT_TRUE(theme::isHighContrast(palette));
  EXPECT_FALSE(theme::isHighContrast(darkPalette()));
  EXPECT_FALSE(theme::isHighContrast(QPalette(QColor(0xEF, 0xEF, 0xEF))));
  for (const auto tone : {theme::Tone::primary, theme::Tone::secondary, theme::Tone::tertiary,
                          theme::Tone::warning, theme::Tone::success}) {
    EXPECT_EQ(theme::color(tone, palette, {Qt::black}), QColor(Qt::white));
  }
  EXPECT_EQ(theme::faintOutline(theme::sky(), 0.18, palette), QColor(Qt::white));
  EXPECT_EQ(theme::faintFill(theme::sky(), 0.18, palette).alpha(), 0);
  EXPECT_EQ(theme::filled(theme::deep(), palette).fill, QColor(Qt::yellow));
  EXPECT_EQ(theme::filled(theme::deep(), palette).text, QColor(Qt::black));
}

TEST(Theme, MovesAccentsNoFurtherThanNeeded) {
  const QPalette palette(QColor(0xEF, 0xEF, 0xEF));
  EXPECT_EQ(theme::readable(theme::deep(), palette), theme::deep());
  EXPECT_LT(
      theme::contrast(theme::readable(theme::sky(), palette), palette.color(QPalette::Window)),
      4.8);
}

}  // namespace
}  // namespace mirvane
