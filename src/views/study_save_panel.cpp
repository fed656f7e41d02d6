#include "views/study_save_panel.h"

#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <system_error>
#include <utility>

#include "files/save_target.h"
#include "views/replace_question.h"
#include "views/save_panel_dialog.h"
#include "views/study_dialog.h"

namespace mirvane {
namespace {

using Outcome = NativeSavePanel::Outcome;

QString translated(const char* text) {
  return QCoreApplication::translate("mirvane::StudySavePanel", text);
}

/// The window that the panel belongs to. The one of the desktop may have taken the activity away.
QWidget* askingWindow() {
  if (auto* const active = QApplication::activeWindow()) return active;
  for (auto* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && qobject_cast<QDialog*>(window) == nullptr) return window;
  }
  return nullptr;
}

/// Stands in the window while the desktop's panel is open: should that one hang or never come, the
/// participant is not left without a panel.
StudyDialog* makeWaitingDialog(QWidget* asker, std::function<void(Outcome)> leave) {
  auto* const waiting = new StudyDialog(
      {QStringLiteral("info.circle.fill"), translated("Choose a place for the file"),
       translated("Your desktop shows a window for this. If you do not see one, choose the place "
                  "here.")},
      asker);
  waiting->setObjectName(QStringLiteral("savePanelWaiting"));
  waiting->addChoice(translated("Choose here"), StudyDialog::ChoiceRole::other,
                     [leave] { leave(Outcome::lost); });
  waiting->addChoice(translated("Do not save now"), StudyDialog::ChoiceRole::safe,
                     [leave] { leave(Outcome::cancelled); });
  return waiting;
}

bool mayReplace(const std::filesystem::path& path) {
  auto* const asker = askingWindow();
  if (asker == nullptr) return false;
  QEventLoop answered;
  bool isAllowed = false;
  auto* const question = makeReplaceQuestion(path, asker, [&isAllowed] { isAllowed = true; });
  QObject::connect(question, &QObject::destroyed, &answered, &QEventLoop::quit);
  question->open();
  answered.exec();
  return isAllowed;
}

bool isTaken(const std::filesystem::path& path) {
  std::error_code ignored;
  return std::filesystem::exists(std::filesystem::symlink_status(path, ignored));
}

}  // namespace

StudySavePanel::StudySavePanel(NativeSavePanel& native, std::filesystem::path folder)
    : native_(native), folder_(std::move(folder)) {}

std::optional<std::filesystem::path> StudySavePanel::run(const Options& options) {
  const auto answer = askDesktop(options);
  if (answer.outcome == Outcome::cancelled) return std::nullopt;
  if (answer.outcome == Outcome::lost) return askHere(options);
  auto path = withTextSuffix(answer.path);
  // The desktop has asked about the name without the suffix.
  const bool isAgreed = path == answer.path || !isTaken(path) || mayReplace(path);
  return isAgreed ? std::optional(path) : askHere(options);
}

NativeSavePanel::Answer StudySavePanel::askDesktop(const Options& options) {
  NativeSavePanel::Answer answer;
  QEventLoop answered;
  const auto finish = [&](NativeSavePanel::Answer given) {
    answer = std::move(given);
    answered.quit();
  };
  auto* const asker = askingWindow();
  if (!native_.open(options, finish)) return answer;
  QPointer<StudyDialog> waiting;
  if (asker != nullptr) {
    waiting = makeWaitingDialog(asker, [&](Outcome outcome) { finish({outcome}); });
    waiting->open();
  }
  answered.exec();
  native_.close();
  if (waiting != nullptr) waiting->done(QDialog::Rejected);
  return answer;
}

std::optional<std::filesystem::path> StudySavePanel::askHere(const Options& options) const {
  SavePanelDialog dialog(options, folder_, askingWindow());
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.chosenPath();
}

}  // namespace mirvane
