#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

#include "platform/accessibility.h"
#include "platform/workspace.h"
#include "views/other_programs_notice.h"

namespace mirvane {

class BorderedButton;
class StudyDialog;
class TextLabel;

/// Shown instead of the study while the application may not use accessibility: asks for the
/// permission or leads to the desktop's settings. What it asks goes away with it. What has been
/// typed can be saved from here, should the permission never come. It takes the focus itself, and
/// none of its buttons does: the next key may be meant for the field that was there a moment ago.
class AccessibilityRequiredGateView : public QWidget, private TrustPrompt {
  Q_OBJECT

 public:
  AccessibilityRequiredGateView(Accessibility& accessibility, Workspace& workspace,
                                OtherPrograms otherPrograms, const QColor& deep,
                                std::function<void()> onSave, QWidget* parent = nullptr);

  /// Whether there are results to be saved.
  void setOffersSaving(bool offersSaving);

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
  BorderedButton* saveButton_;
};

}  // namespace mirvane
