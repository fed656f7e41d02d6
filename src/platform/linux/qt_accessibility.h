#pragma once

#include "platform/accessibility.h"
#include "platform/linux/accessibility_status.h"
#include "platform/linux/other_applications.h"

namespace mirvane {

/// Accessibility of this application's own windows, in process, and of the others. Trust is the
/// desktop's accessibility switch.
class QtAccessibility : public Accessibility {
 public:
  /// `others` is null where other applications cannot be reached.
  explicit QtAccessibility(OtherApplications* others = nullptr) : others_(others) {}

  [[nodiscard]] bool isProcessTrusted() const override;
  void promptForTrust(TrustPrompt& prompt) override;
  [[nodiscard]] std::shared_ptr<AccessibilityElement> focusedElement() const override;

 private:
  OtherApplications* others_;
  AccessibilityStatus status_;
};

}  // namespace mirvane
