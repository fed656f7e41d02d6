#include "platform/linux/trust_dialog.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

namespace mirvane {
namespace {

constexpr const char* dialogName = "trustDialog";

QMessageBox* makeBox(QMessageBox::Icon icon, const QString& text, const QString& explanation) {
  auto* const box = new QMessageBox(icon, QApplication::applicationDisplayName(), text,
                                    QMessageBox::NoButton, QApplication::activeWindow());
  box->setObjectName(QLatin1String(dialogName));
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setInformativeText(explanation);
  return box;
}

QMessageBox* openBox() {
  for (auto* const widget : QApplication::topLevelWidgets()) {
    auto* const box = qobject_cast<QMessageBox*>(widget);
    if (box != nullptr && box->objectName() == QLatin1String(dialogName)) return box;
  }
  return nullptr;
}

void explainFailure(const QString& reason) {
  auto* const box =
      makeBox(QMessageBox::Warning, QObject::tr("Accessibility could not be switched on."), reason);
  box->addButton(QMessageBox::Ok);
  box->open();
}

void enable(const AccessibilityStatus& status) {
  if (const auto failure = status.enable()) explainFailure(QString::fromStdString(*failure));
}

}  // namespace

void showTrustDialog(const AccessibilityStatus& status) {
  if (auto* const open = openBox()) {
    open->raise();
    open->activateWindow();
    return;
  }
  if (!status.isEnabled()) {
    explainFailure(
        QObject::tr("This desktop session has no accessibility service, or no message "
                    "bus to reach it by."));
    return;
  }
  auto* const box = makeBox(
      QMessageBox::Question, QObject::tr("Allow this application to use accessibility?"),
      QObject::tr("It reads the text you type and corrects it. Allowing this switches on the "
                  "accessibility service of your desktop; you can switch it off again in the "
                  "desktop's settings."));
  const auto* const allow = box->addButton(QObject::tr("Allow"), QMessageBox::AcceptRole);
  box->addButton(QObject::tr("Don't Allow"), QMessageBox::RejectRole);
  QObject::connect(allow, &QPushButton::clicked, box, [status] { enable(status); });
  box->open();
}

}  // namespace mirvane
