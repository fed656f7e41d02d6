#pragma once

#include "platform/accessibility.h"
#include "platform/linux/accessibility_status.h"

namespace mirvane {

/// Accessibility of this application's own windows, in process. Trust is the desktop's
/// accessibility switch.
class QtAccessibility : public Accessibility {
 public:
  [[nodiscard]] bool isProcessTrusted() const override;
  void promptForTrust() override;
  [[nodiscard]] std::shared_ptr<AccessibilityElement> focusedElement() const override;

 private:
  AccessibilityStatus status_;
};

}  // namespace mirvane
