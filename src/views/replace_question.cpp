#include "views/replace_question.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <utility>

#include "views/study_dialog.h"

namespace mirvane {
namespace {

QString translated(const char* text) {
  return QCoreApplication::translate("mirvane::ReplaceQuestion", text);
}

}  // namespace

StudyDialog* makeReplaceQuestion(const std::filesystem::path& path, QWidget* asker,
                                 std::function<void()> onReplace, std::function<void()> onKeep) {
  auto* const question = new StudyDialog({QStringLiteral("exclamationmark.triangle.fill"),
                                          translated("A file of this name already exists"),
                                          translated("Replacing %1 loses what it holds now.")
                                              .arg(QString::fromStdString(path.string()))},
                                         asker);
  question->setObjectName(QStringLiteral("replaceQuestion"));
  question->addChoice(translated("Keep it and choose another name"), StudyDialog::ChoiceRole::safe,
                      std::move(onKeep));
  question->addChoice(translated("Replace it"), StudyDialog::ChoiceRole::other,
                      std::move(onReplace));
  return question;
}

}  // namespace mirvane
