#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "tests/views/study_world.h"
#include "views/save_panel_dialog.h"
#include "views/study_dialog.h"
#include "views/study_save_panel.h"

namespace mirvane {
namespace {

const SavePanel::Options options{"result.txt", "Save", "Save result and send to a@b.example"};

std::filesystem::path pathOf(const QTemporaryDir& folder, const char* name) {
  return std::filesystem::path(folder.path().toStdString()) / name;
}

void makeFile(const std::filesystem::path& path) {
  QFile file(QString::fromStdString(path.string()));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
}

class OwnPanel : public ::testing::Test {
 protected:
  OwnPanel() {
    window.show();
    panel.open();
    QCoreApplication::processEvents();
    endPressGuards(panel);
  }

  void answerQuestion(const char* text) {
    auto& question = part<StudyDialog>(panel, "replaceQuestion");
    endPressGuards(question);
    for (auto* const button : question.findChildren<QAbstractButton*>()) {
      if (button->text() == QLatin1String(text)) return button->click();
    }
    FAIL() << "no choice " << text;
  }

  QTemporaryDir folder;
  bool hasInner = std::filesystem::create_directory(pathOf(folder, "inner"));
  QWidget window;
  SavePanelDialog panel{options, folder.path().toStdString(), &window};
  QLineEdit& name = part<QLineEdit>(panel, "saveName");
  QListWidget& folders = part<QListWidget>(panel, "saveFolders");
  QAbstractButton& save = part<QAbstractButton>(panel, "savePanelSave");
};

TEST_F(OwnPanel, ShowsFolderMessageAndTheNameReadyToBeTypedOver) {
  EXPECT_TRUE(shownTexts(panel).contains("Save result and send to a@b.example"));
  EXPECT_TRUE(shownTexts(panel).contains("Folder: " + folder.path()));
  EXPECT_EQ(panel.focusWidget(), &name);
  EXPECT_EQ(name.selectedText(), "result.txt");
  EXPECT_EQ(save.text(), "Save");
  EXPECT_GE(folders.visualItemRect(folders.item(0)).height(), 44);
}

TEST_F(OwnPanel, SavesPlainTextWithReturn) {
  QTest::keyClicks(&name, "mine.csv");
  QTest::keyClick(&name, Qt::Key_Return);
  EXPECT_EQ(panel.result(), QDialog::Accepted);
  EXPECT_EQ(panel.chosenPath(), pathOf(folder, "mine.csv.txt"));
}

TEST_F(OwnPanel, ChangesIntoFoldersByClickAndByKey) {
  EXPECT_EQ(folders.item(1)->text(), "inner");
  QTest::qWait(1100);  // what comes sooner is the rest of another click
  const QPoint second = folders.visualItemRect(folders.item(1)).center();
  QTest::mouseClick(folders.viewport(), Qt::LeftButton, {}, second);
  EXPECT_TRUE(shownTexts(panel).contains("Folder: " + folder.filePath("inner")));
  const QPoint first = folders.visualItemRect(folders.item(0)).center();
  QTest::mouseClick(folders.viewport(), Qt::LeftButton, {}, first);
  EXPECT_TRUE(shownTexts(panel).contains("Folder: " + folder.filePath("inner")));
  folders.setFocus();
  QTest::keyClick(&folders, Qt::Key_Return);
  EXPECT_TRUE(shownTexts(panel).contains("Folder: " + folder.path()));
}

TEST_F(OwnPanel, AsksBeforeItReplacesAFile) {
  makeFile(pathOf(folder, "result.txt"));
  save.click();
  answerQuestion("Keep it and choose another name");
  EXPECT_TRUE(panel.isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  save.click();
  answerQuestion("Replace it");
  EXPECT_EQ(panel.result(), QDialog::Accepted);
  EXPECT_EQ(panel.chosenPath(), pathOf(folder, "result.txt"));
}

TEST_F(OwnPanel, SavesNothingWithoutANameOrWhenCancelled) {
  name.setText(QStringLiteral("  "));
  EXPECT_FALSE(save.isEnabled());
  QTest::keyClick(&name, Qt::Key_Return);
  EXPECT_TRUE(panel.isVisible());
  QTest::keyClick(&name, Qt::Key_Escape);
  EXPECT_EQ(panel.result(), QDialog::Rejected);
}

/// The desktop's panel, as a test wants it.
class ScriptedNativePanel : public NativeSavePanel {
 public:
  bool open(const SavePanel::Options& /*options*/, std::function<void(Answer)> onAnswer) override {
    ++opened;
    if (answer) QTimer::singleShot(0, [this, onAnswer] { onAnswer(*answer); });
    return isThere;
  }
  void close() override { ++closed; }

  bool isThere = true;
  std::optional<Answer> answer;
  int opened = 0;
  int closed = 0;
};

class Panels : public ::testing::Test {
 protected:
  Panels() {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  /// Does something to the window of this name once it is shown.
  template <typename Widget, typename Action>
  void when(const char* name, Action action) {
    auto* const timer = new QTimer(&window);
    QObject::connect(timer, &QTimer::timeout, &window, [timer, name, action] {
      for (auto* const shown : QApplication::topLevelWidgets()) {
        auto* const found = qobject_cast<Widget*>(shown);
        if (found == nullptr || found->objectName() != QLatin1String(name)) continue;
        if (!found->isVisible()) continue;
        timer->stop();
        endPressGuards(*found);
        return action(*found);
      }
    });
    timer->start(5);
  }

  static void press(const QWidget& dialog, const char* text) {
    for (auto* const button : dialog.findChildren<QAbstractButton*>()) {
      if (button->text() == QLatin1String(text)) button->click();
    }
  }

  void saveHere() {
    when<SavePanelDialog>("savePanel", [](SavePanelDialog& dialog) { press(dialog, "Save"); });
  }

  QTemporaryDir folder;
  QWidget window;
  ScriptedNativePanel native;
  StudySavePanel panel{native, folder.path().toStdString()};
  std::filesystem::path here = pathOf(folder, "result.txt");
};

using Outcome = NativeSavePanel::Outcome;

TEST_F(Panels, TakeTheAnswerOfTheDesktop) {
  native.answer = {Outcome::chosen, pathOf(folder, "chosen.txt")};
  EXPECT_EQ(panel.run(options), pathOf(folder, "chosen.txt"));
  native.answer = {Outcome::chosen, pathOf(folder, "chosen.csv")};
  EXPECT_EQ(panel.run(options), pathOf(folder, "chosen.csv.txt"));
  native.answer = {Outcome::cancelled, {}};
  EXPECT_EQ(panel.run(options), std::nullopt);
}

TEST_F(Panels, AskHereWhereTheDesktopHasNoPanelOrLosesIt) {
  native.isThere = false;
  saveHere();
  EXPECT_EQ(panel.run(options), here);
  native.isThere = true;
  native.answer = {Outcome::lost, {}};
  saveHere();
  EXPECT_EQ(panel.run(options), here);
}

TEST_F(Panels, LetAPanelThatNeverComesBeLeft) {
  when<StudyDialog>("savePanelWaiting", [](StudyDialog& dialog) { press(dialog, "Choose here"); });
  saveHere();
  EXPECT_EQ(panel.run(options), here);
  EXPECT_EQ(native.closed, 1);
  when<StudyDialog>("savePanelWaiting", [](StudyDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(panel.run(options), std::nullopt);
  EXPECT_EQ(native.closed, 2);
}

TEST_F(Panels, AskBeforeTheAddedSuffixHitsAFile) {
  const auto taken = pathOf(folder, "chosen.csv.txt");
  makeFile(taken);
  native.answer = {Outcome::chosen, pathOf(folder, "chosen.csv")};
  when<StudyDialog>("replaceQuestion", [](StudyDialog& dialog) { press(dialog, "Replace it"); });
  EXPECT_EQ(panel.run(options), taken);
  when<StudyDialog>("replaceQuestion", [](StudyDialog& dialog) { dialog.reject(); });
  saveHere();
  EXPECT_EQ(panel.run(options), here);
}

}  // namespace
}  // namespace mirvane
