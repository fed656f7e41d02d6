#include "views/session_typing_view.h"

#include <gtest/gtest.h>

#include <QPushButton>

#include "tests/views/study_world.h"
#include "views/suggestion_chip.h"

namespace mirvane {
namespace {

class SessionView : public ::testing::Test {
 protected:
  /// Shows the screen of session 1 or 2.
  void open(int number) {
    view.reset();
    view = std::make_unique<SessionTypingView>(SessionTypingView::Inputs{
        number, QStringLiteral("A sentence."), engine, typedText,
        number == 1 ? nullptr : &world.cycleKeyMonitor, world.desktop.monitors(),
        world.desktop.tasks(), [this] { ++done; }, otherPrograms, theme::deep(), theme::sky()});
    view->show();
  }

  [[nodiscard]] SuggestionChip& chip(int index) {
    return part<SuggestionChip>(*view, ("chip" + std::to_string(index)).c_str());
  }

  [[nodiscard]] QPlainTextEdit& field() { return part<QPlainTextEdit>(*view, "typingField"); }

  StudyWorld world;
  CorrectionEngine engine{world.services()};
  Observable<std::string> typedText;
  int done = 0;
  OtherPrograms otherPrograms = OtherPrograms::watched;
  std::unique_ptr<SessionTypingView> view;
};

TEST_F(SessionView, SaysWhatEachSessionUses) {
  const char* advice =
      "Type naturally. Mirvane will show suggestions with Space and cycle them with Right Option "
      "⌥.";
  const QStringList texts[] = {
      {"Session 1", "This session uses Space for auto-correction only",
       "Right Option is not used in this session.",
       "Type naturally. Mirvane will automatically correct spacing errors."},
      {"Session 2", "This session uses Space and Right Option ⌥ to cycle suggestions",
       "Right Option is used in this session.", advice, "On this keyboard: the right Alt key",
       "A sentence.", "No Backspace"}};
  const char* buttons[] = {"Done — Continue to Session 2", "Done — See Results"};
  for (const int session : {0, 1}) {
    open(session + 1);
    const auto shown = shownTexts(*view);
    for (const auto& text : texts[session]) EXPECT_TRUE(shown.contains(text)) << text.toStdString();
    EXPECT_EQ(shown.join(' ').contains("right Alt"), session == 1);
    EXPECT_EQ(part<QPushButton>(*view, "doneButton").text(), buttons[session]);
  }
  field().setPlainText(QStringLiteral("text"));
  part<QPushButton>(*view, "doneButton").click();
  EXPECT_EQ(done, 1);
}

TEST_F(SessionView, SaysWhatBecomesOfTextInOtherPrograms) {
  for (const int session : {1, 2}) {
    for (const auto reach : {OtherPrograms::watched, OtherPrograms::leftAlone}) {
      otherPrograms = reach;
      open(session);
      const auto& notice = part<QWidget>(*view, "otherProgramsNotice");
      EXPECT_EQ(shownTexts(notice), QStringList{otherProgramsNotice(reach)});
      EXPECT_TRUE(notice.isVisible());
    }
  }
  EXPECT_TRUE(otherProgramsNotice(OtherPrograms::watched).contains("type only in this window"));
  EXPECT_TRUE(otherProgramsNotice(OtherPrograms::leftAlone).contains("left alone"));
}

TEST_F(SessionView, ShowsADashOrAChipForEachSuggestion) {
  open(1);
  EXPECT_TRUE(part<QWidget>(*view, "noSuggestions").isVisible());
  EXPECT_FALSE(chip(0).isVisible());
  world.desktop.type("helo");
  EXPECT_FALSE(part<QWidget>(*view, "noSuggestions").isVisible());
  EXPECT_EQ(chip(0).text(), "hello");
  EXPECT_EQ(chip(0).toolTip(), "Apply hello");
  EXPECT_EQ(chip(0).accessibleName(), "Apply hello");
  EXPECT_EQ(chip(0).emphasis(), SuggestionChip::Emphasis::current);
  EXPECT_EQ(chip(0).font().weight(), QFont::Bold);
  EXPECT_EQ(chip(1).emphasis(), SuggestionChip::Emphasis::other);
  EXPECT_TRUE(chip(2).isVisible());
  world.desktop.type(" ");
  EXPECT_TRUE(part<QWidget>(*view, "noSuggestions").isVisible());
}

TEST_F(SessionView, KeepsTheChipsInTheirPlacesWhateverTheySay) {
  open(1);
  view->resize(570, 600);
  const auto places = [this] {
    QCoreApplication::processEvents();
    return QList<QRect>{chip(0).geometry(), chip(1).geometry(), chip(2).geometry()};
  };
  world.desktop.type("helo");
  const auto before = places();
  for (int i = 1; i < 3; ++i) EXPECT_NEAR(before[i].width(), before[0].width(), 1);
  chip(0).setSuggestion(QStringLiteral("incomprehensibilities"), SuggestionChip::Emphasis::other);
  EXPECT_EQ(places(), before);
  chip(1).hide();
  chip(2).hide();
  EXPECT_EQ(places()[0], before[0]);
  EXPECT_LT(before[0].width(), part<QWidget>(*view, "doneButton").width() / 2);
}

TEST_F(SessionView, DrawsTheGradientOfTheBarWithoutStripes) {
  open(1);
  view->resize(570, 600);
  QCoreApplication::processEvents();
  auto* const bar = part<QWidget>(*view, "noSuggestions").parentWidget();
  const QImage line = bar->grab().toImage();
  int longestRun = 0;
  int run = 0;
  for (int x = 1; x < line.width(); ++x) {
    run = line.pixel(x, 2) == line.pixel(x - 1, 2) ? run + 1 : 0;
    longestRun = std::max(longestRun, run);
  }
  EXPECT_LT(longestRun, 12);
}

TEST_F(SessionView, AppliesATappedChipAndGivesTheFieldTheFocus) {
  open(1);
  view->activateWindow();
  QCoreApplication::processEvents();
  world.desktop.type("helo");
  chip(1).setFocus();
  const std::string picked = chip(1).text().toStdString();
  chip(1).click();
  EXPECT_EQ(world.element.text(), picked);
  EXPECT_EQ(engine.measurements().manualCorrectionCount, 1);
  EXPECT_TRUE(field().hasFocus());
}

TEST_F(SessionView, BindsTheFieldToTheTextOfTheFlow) {
  typedText.set("before");
  open(1);
  EXPECT_EQ(field().toPlainText(), "before");
  field().setPlainText(QStringLiteral("after ✓"));
  EXPECT_EQ(*typedText, "after ✓");
}

TEST_F(SessionView, ResetEmptiesTextAndEngineAndGoesOnTracking) {
  open(1);
  world.desktop.type("helo ");
  field().setPlainText(QStringLiteral("hello "));
  part<QPushButton>(*view, "resetButton").click();
  EXPECT_EQ(*typedText, "");
  EXPECT_EQ(field().toPlainText(), "");
  EXPECT_EQ(engine.measurements().keystrokeCount, 0);
  EXPECT_TRUE(engine.isTracking);
  world.desktop.type("a");
  EXPECT_EQ(engine.measurements().keystrokeCount, 1);
}

TEST_F(SessionView, AsksBeforeItEndsWithAnEmptyField) {
  open(1);
  for (const char* blank : {"", " \n "}) {
    field().setPlainText(QString::fromLatin1(blank));
    part<QPushButton>(*view, "doneButton").click();
    EXPECT_EQ(done, 0) << '"' << blank << '"';
    ASSERT_TRUE(part<QWidget>(*view, "emptyFieldQuestion").isVisible());
    part<QPushButton>(*view, "keepTypingButton").click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  part<QPushButton>(*view, "doneButton").click();
  const auto& question = part<QWidget>(*view, "emptyFieldQuestion");
  EXPECT_EQ(question.focusWidget(), &part<QPushButton>(*view, "keepTypingButton"));
  part<QPushButton>(*view, "goOnButton").click();
  EXPECT_EQ(done, 1);
}

TEST_F(SessionView, TakesItsQuestionAwayWithItself) {
  open(1);
  part<QPushButton>(*view, "doneButton").click();
  const auto& question = part<QWidget>(*view, "emptyFieldQuestion");
  ASSERT_TRUE(question.isVisible());
  view->hide();
  EXPECT_FALSE(question.isVisible());
  EXPECT_EQ(done, 0);
}

TEST_F(SessionView, TracksOnceAndOnlyWhileItIsShown) {
  open(2);
  const auto monitors = world.desktop.monitors().count();
  view->hide();
  EXPECT_EQ(world.desktop.monitors().count(), 0U);
  EXPECT_FALSE(engine.isTracking);
  EXPECT_EQ(world.cycleKeyMonitor, std::nullopt);
  view->show();
  EXPECT_EQ(world.desktop.monitors().count(), monitors);
  world.desktop.type("a");
  EXPECT_EQ(engine.measurements().keystrokeCount, 1);
  view->hide();
}

TEST_F(SessionView, CyclesOneStepForEachPressInSession2Only) {
  open(1);
  world.desktop.type("helo ");
  world.strikeCycleKey();
  EXPECT_EQ(engine.measurements().cycleKeyCount, 0);
  view->hide();
  open(2);
  world.strikeCycleKey();
  EXPECT_EQ(engine.measurements().cycleKeyCount, 1);
  view->hide();
}

}  // namespace
}  // namespace mirvane
