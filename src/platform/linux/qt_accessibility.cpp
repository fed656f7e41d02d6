#include "platform/linux/qt_accessibility.h"

#include <QApplication>

#include "platform/linux/active_application.h"
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
  if (isOtherActive(others_)) return others_->focusedElement();
  return makeQtTextElement(QApplication::focusWidget());
}

}  // namespace mirvane
