#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "app/app_flow_view.h"
#include "app/program_end.h"
#include "tests/views/study_world.h"
#include "views/study_dialog.h"

namespace mirvane {
namespace {

/// Once the event loop runs.
void later(const std::function<void()>& work) {
  QMetaObject::invokeMethod(qApp, work, Qt::QueuedConnection);
}

class ClosingTheStudy : public ::testing::Test {
 protected:
  void openAt(AppStep step) {
    flow = world.openFlow();
    advanceTo(step);
  }

  void advanceTo(AppStep step) {
    while (flow->step() != step) flow->advance();
    settle();
  }

  /// What was closed is gone.
  static void settle() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  void type(const char* text) {
    part<QPlainTextEdit>(*flow, "typingField").setPlainText(QString::fromUtf8(text));
  }

  /// Null where none is up.
  [[nodiscard]] StudyDialog* question() const {
    settle();
    return flow->findChild<StudyDialog*>(QStringLiteral("closingQuestion"));
  }

  [[nodiscard]] QStringList choices() const {
    QStringList texts;
    for (const auto* button : question()->findChildren<QPushButton*>()) texts << button->text();
    return texts;
  }

  void choose(const char* text) {
    endPressGuards(*question());
    for (auto* button : question()->findChildren<QPushButton*>()) {
      if (button->text() == QString::fromUtf8(text)) return button->click();
    }
    FAIL() << "no choice " << text;
  }

  void loseAccess() {
    world.desktop.accessibility().setTrusted(false);
    const auto& allow = part<QPushButton>(*flow, "allowButton");
    ASSERT_TRUE(QTest::qWaitFor([&] { return allow.isVisible(); }, 5000));
    endPressGuards(*flow);
  }

  [[nodiscard]] QString reportPath() const { return folder.filePath(QStringLiteral("report.txt")); }
  [[nodiscard]] QByteArray report() const {
    QFile file(reportPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir folder;
  StudyWorld world;
  std::unique_ptr<AppFlowView> flow;
};

TEST_F(ClosingTheStudy, AsksNothingWhileNothingHasBeenTyped) {
  for (const auto step : appSteps) {
    openAt(step);
    EXPECT_TRUE(flow->close());
    EXPECT_FALSE(flow->isVisible());
  }
}

TEST_F(ClosingTheStudy, AsksOnceThereIsTypingAndStaysByItself) {
  openAt(AppStep::session1);
  type("The quick");
  EXPECT_FALSE(flow->close());
  EXPECT_FALSE(flow->close()) << "asked again while it asks";
  EXPECT_EQ(flow->findChildren<StudyDialog*>().size(), 1);
  EXPECT_EQ(part<QLabel>(*question(), "dialogTitle").text(), "Your typing has not been saved yet.");
  EXPECT_EQ(choices(), (QStringList{"Stay", "Close Without Saving"}));
  EXPECT_EQ(question()->focusWidget(), question()->findChildren<QPushButton*>().first());
  question()->close();
  EXPECT_EQ(question(), nullptr);
  EXPECT_TRUE(flow->isVisible());
  EXPECT_FALSE(flow->close());
  choose("Stay");
  EXPECT_EQ(question(), nullptr);
  EXPECT_TRUE(flow->isVisible());
  EXPECT_EQ(part<QPlainTextEdit>(*flow, "typingField").toPlainText(), "The quick");
}

TEST_F(ClosingTheStudy, ClosesWhenThatIsChosen) {
  openAt(AppStep::session1);
  world.desktop.type("a");
  advanceTo(AppStep::session2);
  EXPECT_FALSE(flow->close()) << "session 1 counts too, and what was typed elsewhere";
  choose("Close Without Saving");
  EXPECT_FALSE(flow->isVisible());
}

TEST_F(ClosingTheStudy, ForgetsWhatAResetTookAway) {
  openAt(AppStep::session1);
  type("The quick");
  part<QPushButton>(*flow, "resetButton").click();
  EXPECT_TRUE(flow->close());
}

TEST_F(ClosingTheStudy, OffersSavingAtTheResultsAndAsksNoMoreOnceSaved) {
  openAt(AppStep::session2);
  type("Please");
  advanceTo(AppStep::results);
  EXPECT_FALSE(flow->close());
  EXPECT_EQ(choices(), (QStringList{"Stay", "Save Results…", "Close Without Saving"}));
  world.savePanel.answer(folder.filePath(QStringLiteral("missing/report.txt")).toStdString());
  choose("Save Results…");
  part<StudyDialog>(*flow, "saveErrorAlert").close();
  EXPECT_FALSE(flow->close()) << "nothing was saved";
  world.savePanel.answer(reportPath().toStdString());
  choose("Save Results…");
  EXPECT_TRUE(report().contains("Corrected: Please\n"));
  EXPECT_EQ(part<QPushButton>(*flow, "saveButton").text(), "Saved ✓");
  EXPECT_TRUE(flow->isVisible()) << "where it says what to do with the file";
  EXPECT_TRUE(flow->close());
}

TEST_F(ClosingTheStudy, AsksNothingAtTheEndOfTheLogInSession) {
  openAt(AppStep::session1);
  type("The quick");
  int kept = 0;
  const ProgramEnd end({[&] { ++kept; }, [this] { flow->prepareForEnd(); }});
  EXPECT_FALSE(flow->close());
  later([] {
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
  });
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_GE(kept, 1);
  EXPECT_FALSE(flow->isVisible());
}

TEST_F(ClosingTheStudy, EndsProperlyAtASignalAlsoWhileItAsks) {
  openAt(AppStep::session1);
  type("The quick");
  bool isKept = false;
  const ProgramEnd end({[&] { isKept = true; }, [this] { flow->prepareForEnd(); }});
  EXPECT_FALSE(flow->close());
  later([] { raise(SIGTERM); });
  EXPECT_EQ(QApplication::exec(), 128 + SIGTERM);
  EXPECT_TRUE(isKept);
  flow.reset();
  EXPECT_EQ(world.desktop.monitors().count(), 0U);
}

TEST_F(ClosingTheStudy, CanBeSavedWhereAccessibilityDoesNotComeBack) {
  openAt(AppStep::session1);
  loseAccess();
  EXPECT_FALSE(part<QPushButton>(*flow, "gateSaveButton").isVisible()) << "nothing to be saved";
  world.desktop.accessibility().setTrusted(true);
  openAt(AppStep::session2);
  type("Please");
  loseAccess();
  auto& save = part<QPushButton>(*flow, "gateSaveButton");
  EXPECT_TRUE(save.isVisible());
  world.savePanel.answer(reportPath().toStdString());
  save.click();
  EXPECT_TRUE(report().contains("Corrected: Please\n"));
  EXPECT_TRUE(flow->close());
}

TEST_F(ClosingTheStudy, KeepsTheResultsInReachBehindTheGate) {
  openAt(AppStep::session2);
  type("Please");
  advanceTo(AppStep::results);
  loseAccess();
  world.savePanel.answer(reportPath().toStdString());
  part<QPushButton>(*flow, "gateSaveButton").click();
  EXPECT_TRUE(report().contains("Corrected: Please\n"));
  EXPECT_EQ(part<QPushButton>(*flow, "saveButton").text(), "Saved ✓");
}

TEST_F(ClosingTheStudy, GivesTheGateNoKeyMeantForTheField) {
  openAt(AppStep::session1);
  flow->activateWindow();
  loseAccess();
  QTest::keyClick(flow->windowHandle(), Qt::Key_Space);
  QTest::keyClick(flow->windowHandle(), Qt::Key_Return);
  const auto consent = [&] {
    return flow->findChild<StudyDialog*>(QStringLiteral("consentDialog"));
  };
  EXPECT_EQ(consent(), nullptr);
  QTest::keyClick(flow->windowHandle(), Qt::Key_Tab);
  QTest::keyClick(flow->windowHandle(), Qt::Key_Space);
  EXPECT_NE(consent(), nullptr) << "the keyboard reaches it";
}

}  // namespace
}  // namespace mirvane
