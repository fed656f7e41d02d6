#pragma once

#include <QWidget>

#include "platform/accessibility.h"
#include "platform/workspace.h"

namespace mirvane {

class TextLabel;

/// Shown instead of the study while the application may not use accessibility: asks for the
/// permission or leads to the desktop's settings.
class AccessibilityRequiredGateView : public QWidget {
  Q_OBJECT

 public:
  AccessibilityRequiredGateView(Accessibility& accessibility, Workspace& workspace,
                                const QColor& deep, QWidget* parent = nullptr);

 private:
  [[nodiscard]] QWidget* makeButtons(const QColor& deep);
  void openSettings();

  Accessibility& accessibility_;
  Workspace& workspace_;
  TextLabel* settingsFailure_;
};

}  // namespace mirvane
