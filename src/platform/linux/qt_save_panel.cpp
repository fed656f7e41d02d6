#include "platform/linux/qt_save_panel.h"

#include <QApplication>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QStandardPaths>

namespace mirvane {
namespace {

/// The dialog has no place for a message of its own: it gets one below its other rows.
void addMessage(QFileDialog& dialog, const QString& message) {
  auto* const grid = qobject_cast<QGridLayout*>(dialog.layout());
  if (grid == nullptr) return;
  auto* const label = new QLabel(message, &dialog);
  label->setObjectName(QStringLiteral("saveMessage"));
  label->setWordWrap(true);
  grid->addWidget(label, grid->rowCount(), 0, 1, -1);
  dialog.setAccessibleDescription(message);
}

}  // namespace

std::optional<std::filesystem::path> QtSavePanel::run(const Options& options) {
  QFileDialog dialog(QApplication::activeWindow());
  dialog.setObjectName(QStringLiteral("savePanel"));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilter(QObject::tr("Plain text (*.txt)"));
  dialog.setDefaultSuffix(QStringLiteral("txt"));
  dialog.setLabelText(QFileDialog::Accept, QString::fromStdString(options.prompt));
  dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  dialog.selectFile(QString::fromStdString(options.suggestedFileName));
  addMessage(dialog, QString::fromStdString(options.message));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return std::filesystem::path(dialog.selectedFiles().constFirst().toStdString());
}

}  // namespace mirvane
