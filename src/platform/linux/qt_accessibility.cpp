#include "platform/linux/qt_accessibility.h"

#include <QApplication>

#include "platform/linux/active_application.h"
#include "platform/linux/qt_text_element.h"

namespace mirvane {

bool QtAccessibility::isProcessTrusted() const {
  return status_.isEnabled().value_or(false);
}

void QtAccessibility::promptForTrust(TrustPrompt& prompt) {
  if (!status_.isEnabled()) {
    return prompt.explainFailure(
        "This desktop session has no accessibility service, or no message bus to reach it by.");
  }
  prompt.ask([status = status_] { return status.enable(); });
}

std::shared_ptr<AccessibilityElement> QtAccessibility::focusedElement() const {
  if (isOtherActive(others_)) return others_->focusedElement();
  return makeQtTextElement(QApplication::focusWidget());
}

}  // namespace mirvane
