#include "platform/linux/qt_accessibility.h"

#include <QApplication>

#include "platform/linux/qt_text_element.h"
#include "platform/linux/trust_dialog.h"

namespace mirvane {

bool QtAccessibility::isProcessTrusted() const {
  return status_.isEnabled().value_or(false);
}

void QtAccessibility::promptForTrust() {
  showTrustDialog(status_);
}

std::shared_ptr<AccessibilityElement> QtAccessibility::focusedElement() const {
  const bool isOwn = QGuiApplication::applicationState() == Qt::ApplicationActive;
  if (isOwn || others_ == nullptr) return makeQtTextElement(QApplication::focusWidget());
  return others_->focusedElement();
}

}  // namespace mirvane
