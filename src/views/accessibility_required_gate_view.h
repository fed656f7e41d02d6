#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/accessibility.h"
#include "platform/workspace.h"
#include "views/other_programs_notice.h"

namespace mirvane {

class StudyDialog;
class TextLabel;

/// Shown instead of the study while the application may not use accessibility: asks for the
/// permission or leads to the desktop's settings. What it asks goes away with it.
class AccessibilityRequiredGateView : public QWidget, private TrustPrompt {
  Q_OBJECT

 public:
  AccessibilityRequiredGateView(Accessibility& accessibility, Workspace& workspace,
                                OtherPrograms otherPrograms, const QColor& deep,
                                QWidget* parent = nullptr);

 private:
  void ask(Grant grant) override;
  void explainFailure(const std::string& reason) override;
  [[nodiscard]] QWidget* makeButtons(const QColor& deep);
  void openSettings();

  Accessibility& accessibility_;
  Workspace& workspace_;
  OtherPrograms otherPrograms_;
  QPointer<StudyDialog> consent_;
  TextLabel* settingsFailure_;
};

}  // namespace mirvane
