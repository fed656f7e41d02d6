#include "app/app_flow_view.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "platform/simulated/in_memory_journal_file.h"
#include "tests/views/study_world.h"
#include "views/results_view.h"

namespace mirvane {
namespace {

class Flow : public ::testing::Test {
 protected:
  void open() { flow = world.openFlow(); }

  void advanceTo(AppStep step) {
    while (flow->step() != step) flow->advance();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  [[nodiscard]] bool isGateShown() const {
    return part<QPushButton>(*flow, "allowButton").isVisible();
  }

  StudyWorld world;
  std::unique_ptr<AppFlowView> flow;
};

TEST_F(Flow, GoesForwardThroughFiveStepsAndStaysAtTheLast) {
  open();
  for (const auto step : appSteps) {
    EXPECT_EQ(flow->step(), step);
    flow->advance();
  }
  EXPECT_EQ(flow->step(), AppStep::results);
}

TEST_F(Flow, FreezesTheTextsLeftInTheEditors) {
  open();
  advanceTo(AppStep::session1);
  part<QPlainTextEdit>(*flow, "typingField").setPlainText(QStringLiteral("first text"));
  advanceTo(AppStep::session2);
  EXPECT_EQ(part<QPlainTextEdit>(*flow, "typingField").toPlainText(), "");
  part<QPlainTextEdit>(*flow, "typingField").setPlainText(QStringLiteral("second text"));
  world.desktop.clock().advance(90);
  advanceTo(AppStep::results);
  QTemporaryDir folder;
  const auto path = folder.filePath(QStringLiteral("result.txt"));
  world.savePanel.answer(path.toStdString());
  part<QPushButton>(*flow, "saveButton").click();
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString report = QString::fromUtf8(file.readAll());
  EXPECT_TRUE(report.contains("Corrected: first text\n"));
  EXPECT_TRUE(report.contains("Corrected: second text\n"));
  EXPECT_EQ(report.count("Elapsed:          1:30\n"), 2);
}

TEST_F(Flow, KeepsOneCycleKeyMonitorAndNoneAtTheEnd) {
  open();
  advanceTo(AppStep::session1);
  const auto session1Monitors = world.desktop.monitors().count();
  advanceTo(AppStep::session2);
  EXPECT_EQ(world.desktop.monitors().count(), session1Monitors + 1);
  advanceTo(AppStep::results);
  EXPECT_EQ(world.desktop.monitors().count(), 0U);
}

TEST_F(Flow, AsksForThePromptsOfTheStudyFile) {
  world.study.prompts = {"A first line.", "A second line."};
  open();
  advanceTo(AppStep::session1);
  EXPECT_TRUE(shownTexts(*flow).contains(QStringLiteral("A first line.")));
  advanceTo(AppStep::session2);
  EXPECT_TRUE(shownTexts(*flow).contains(QStringLiteral("A second line.")));
}

TEST_F(Flow, PracticeIsPassedWhereTheSessionsCorrectNothing) {
  world.settings.setIsAutoCorrectionEnabled(false);
  open();
  advanceTo(AppStep::practice);
  part<QLineEdit>(*flow, "practiceField").insert(QStringLiteral("helo "));
  world.desktop.type("helo ");
  world.strikeCycleKey();
  EXPECT_TRUE(part<QPushButton>(*flow, "startSessionButton").isEnabled());
  world.element.setText({});
  advanceTo(AppStep::session1);
  world.desktop.type("helo");
  EXPECT_TRUE(part<QLabel>(*flow, "noSuggestions").isVisible());
}

TEST_F(Flow, ShowsTheGateWhileAccessibilityIsNotAllowed) {
  world.desktop.accessibility().setTrusted(false);
  open();
  EXPECT_TRUE(isGateShown());
  EXPECT_EQ(flow->step(), AppStep::intro);
  world.desktop.accessibility().setTrusted(true);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !isGateShown(); }, 3000));
  EXPECT_TRUE(part<QPushButton>(*flow, "startButton").isVisible());
}

TEST_F(Flow, KeepsStepTextAndEngineBehindTheGate) {
  open();
  advanceTo(AppStep::session2);
  auto& field = part<QPlainTextEdit>(*flow, "typingField");
  field.setPlainText(QStringLiteral("kept"));
  world.desktop.accessibility().setTrusted(false);
  ASSERT_TRUE(QTest::qWaitFor([this] { return isGateShown(); }, 3000));
  EXPECT_EQ(world.desktop.monitors().count(), 0U);
  world.desktop.accessibility().setTrusted(true);
  ASSERT_TRUE(QTest::qWaitFor([this] { return !isGateShown(); }, 3000));
  EXPECT_EQ(flow->step(), AppStep::session2);
  EXPECT_EQ(field.toPlainText(), "kept");
  EXPECT_GT(world.desktop.monitors().count(), 0U);
}

/// A flow whose unsaved study is kept, and an earlier run of it that ended in session 2.
class UnsavedFlow : public Flow {
 protected:
  void SetUp() override {
    start();
    EXPECT_EQ(offer(), nullptr);
    advanceTo(AppStep::session1);
    part<QPlainTextEdit>(*flow, "typingField").setPlainText(QStringLiteral("first text"));
    advanceTo(AppStep::session2);
    part<QPlainTextEdit>(*flow, "typingField").setPlainText(QStringLiteral("second"));
    ASSERT_TRUE(flow->keeping().flush(std::chrono::seconds(10)));
    flow.reset();
    ASSERT_TRUE(disk.file);
    start();
  }

  void start() {
    flow = world.openFlow(std::make_shared<simulated::InMemoryJournalFile>(disk));
    flow->activateWindow();
    QCoreApplication::processEvents();
  }

  [[nodiscard]] QWidget* offer() const {
    return flow->findChild<QWidget*>(QStringLiteral("takeUpOffer"));
  }

  void choose(const QString& text) {
    endPressGuards(*offer());
    for (auto* const button : offer()->findChildren<QAbstractButton*>()) {
      if (button->text() == text || button->accessibleName() == text) button->click();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  simulated::JournalDisk disk;
};

TEST_F(UnsavedFlow, OffersToContinueAndGoesOnAtTheStep) {
  ASSERT_NE(offer(), nullptr);
  EXPECT_TRUE(shownTexts(*offer()).join(u' ').contains(QStringLiteral("“Session 2” on Jan 1")));
  choose(QStringLiteral("Continue where you stopped"));
  EXPECT_EQ(flow->step(), AppStep::session2);
  auto& field = part<QPlainTextEdit>(*flow, "typingField");
  EXPECT_EQ(field.toPlainText(), "second");
  EXPECT_EQ(field.textCursor().position(), 6);
  advanceTo(AppStep::results);
  EXPECT_TRUE(disk.file);
  QTemporaryDir folder;
  world.savePanel.answer(folder.filePath(QStringLiteral("result.txt")).toStdString());
  endPressGuards(*flow);
  part<QPushButton>(*flow, "saveButton").click();
  QFile file(folder.filePath(QStringLiteral("result.txt")));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString report = QString::fromUtf8(file.readAll());
  EXPECT_TRUE(report.contains("Corrected: first text\n"));
  EXPECT_TRUE(report.contains("Corrected: second\n"));
  EXPECT_FALSE(disk.file);
}

TEST_F(UnsavedFlow, StartsAfreshWhenThatIsChosen) {
  choose(QStringLiteral("Start afresh and delete what was typed"));
  EXPECT_EQ(flow->step(), AppStep::intro);
  EXPECT_FALSE(disk.file);
}

TEST_F(UnsavedFlow, ContinuesWhenTheOfferIsClosed) {
  offer()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(flow->step(), AppStep::session2);
}

}  // namespace
}  // namespace mirvane
