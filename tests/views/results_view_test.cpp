#include "views/results_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "tests/views/study_world.h"
#include "views/study_dialog.h"

namespace mirvane {
namespace {

SessionSnapshot snapshotOf(int session) {
  SessionSnapshot snapshot;
  snapshot.sessionNumber = session;
  snapshot.prompt = "A sentence.";
  return snapshot;
}

class Results : public ::testing::Test {
 protected:
  Results() { view.show(); }

  void save(const QString& name) {
    world.savePanel.answer(folder.filePath(name).toStdString());
    button.click();
  }

  [[nodiscard]] QByteArray saved(const QString& name) const {
    QFile file(folder.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir folder;
  StudyWorld world;
  ResultsView view{{snapshotOf(1), snapshotOf(2),
                    ReportSaver({QStringLiteral("team@study.example"), world.savePanel, world.files,
                                 world.desktop.clock()}),
                    world.desktop.workspace()}};
  QPushButton& button = part<QPushButton>(view, "saveButton");
};

TEST_F(Results, ThanksAndSaysWhatToDo) {
  constexpr const char* promise =
      "The file is used only for improving Mirvane. We will notify you before any public release "
      "or data sharing.";
  const auto texts = shownTexts(view);
  for (const char* text :
       {"Results", "Mirvane Beta · Typing Study", "Test Complete",
        "Thank you for participating in the Mirvane Beta test.", "Next steps",
        "Save the result file using the button below, then email the file to team@study.example.",
        promise}) {
    EXPECT_TRUE(texts.contains(QString::fromUtf8(text))) << text;
  }
  EXPECT_EQ(button.text(), "Save Results…");
}

TEST_F(Results, AsksWithNameButtonAndMessage) {
  button.click();
  ASSERT_EQ(world.savePanel.shown().size(), 1U);
  const auto& shown = world.savePanel.shown().front();
  EXPECT_EQ(shown.suggestedFileName, "MirvaneTest_2026-01-01T00-00-00Z.txt");
  EXPECT_EQ(shown.prompt, "Save");
  EXPECT_EQ(shown.message, "Save result and send to team@study.example");
}

TEST_F(Results, StaysAsItIsWhenTheDialogIsCancelled) {
  button.click();
  EXPECT_EQ(button.text(), "Save Results…");
  EXPECT_EQ(view.findChild<StudyDialog*>(), nullptr);
}

TEST_F(Results, SavesAsOftenAsAsked) {
  save("one.txt");
  EXPECT_EQ(button.text(), "Saved ✓");
  save("two.txt");
  EXPECT_TRUE(saved("one.txt").startsWith("MirvaneTest — Session Results\n"));
  EXPECT_EQ(saved("one.txt"), saved("two.txt"));
}

TEST_F(Results, SaysWhereTheFileIsAndOpensItsFolder) {
  EXPECT_FALSE(part<QWidget>(view, "openFolderButton").isVisible());
  save("my file.txt");
  EXPECT_EQ(part<QLabel>(view, "savedPlace").text(),
            "The result is saved as " + folder.filePath("my file.txt"));
  auto& open = part<QPushButton>(view, "openFolderButton");
  ASSERT_TRUE(open.isVisible());
  open.click();
  EXPECT_EQ(world.desktop.workspace().openedUrls(),
            std::vector<std::string>{"file://" + folder.path().toStdString()});
  EXPECT_FALSE(shownTexts(view).contains("The folder could not be opened."));
  world.desktop.workspace().setCannotOpenUrls(true);
  open.click();
  EXPECT_TRUE(shownTexts(view).contains("The folder could not be opened."));
}

TEST_F(Results, LetsTheAddressBeCopiedByKey) {
  auto& label = part<QLabel>(view, "emailInstruction");
  EXPECT_TRUE(label.focusPolicy() & Qt::TabFocus);
  label.setFocus();
  QTest::keyClick(&label, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&label, Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QApplication::clipboard()->text().contains("team@study.example"));
}

TEST_F(Results, AlertsToAFailedWriteAndKeepsItsLook) {
  save("one.txt");
  save("missing folder/two.txt");
  auto& alert = part<StudyDialog>(view, "saveErrorAlert");
  EXPECT_EQ(alert.accessibleName(), "Could not save result file");
  EXPECT_EQ(shownTexts(alert),
            (QStringList{"Could not save result file", "No such file or directory"}));
  const auto buttons = alert.findChildren<QPushButton*>();
  ASSERT_EQ(buttons.size(), 1);
  EXPECT_EQ(buttons.first()->text(), "OK");
  EXPECT_EQ(button.text(), "Saved ✓");
  endPressGuards(alert);
  buttons.first()->click();
  EXPECT_FALSE(alert.isVisible());
}

}  // namespace
}  // namespace mirvane
