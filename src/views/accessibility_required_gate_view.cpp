#include "views/accessibility_required_gate_view.h"

#include <utility>

#include "views/bordered_button.h"
#include "views/layouts.h"
#include "views/study_dialog.h"
#include "views/symbol.h"
#include "views/text_label.h"
#include "views/theme.h"

namespace mirvane {
namespace {

TextLabel* centred(TextLabel* label) {
  label->setAlignment(Qt::AlignHCenter);
  return label;
}

}  // namespace

AccessibilityRequiredGateView::AccessibilityRequiredGateView(
    Accessibility& accessibility, Workspace& workspace, OtherPrograms otherPrograms,
    const QColor& deep, std::function<void()> onSave, QWidget* parent)
    : QWidget(parent),
      accessibility_(accessibility),
      workspace_(workspace),
      otherPrograms_(otherPrograms),
      settingsFailure_(new TextLabel(
          tr("This desktop offers no accessibility settings to open. Choose Allow instead."), 13,
          QFont::Normal, theme::Tone::warning, this)),
      saveButton_(new BorderedButton(tr("Save Results…"), {}, this)) {
  setAccessibleName(tr("Accessibility required"));
  settingsFailure_->hide();
  saveButton_->setObjectName(QStringLiteral("gateSaveButton"));
  saveButton_->setAccessibleDescription(tr("Asks where to save what has been typed so far"));
  saveButton_->hide();
  connect(saveButton_, &QPushButton::clicked, this, std::move(onSave));
  auto* const texts = makeColumn(6);
  texts->addWidget(centred(
      new TextLabel(tr("Accessibility required"), 18, QFont::Bold, theme::Tone::primary, this)));
  texts->addWidget(centred(new TextLabel(tr("Enable accessibility access to use Mirvane."), 13,
                                         QFont::Normal, theme::Tone::secondary, this)));

  auto* const column = makeColumn(18, this);
  column->setContentsMargins(32, 32, 32, 32);
  column->addStretch(1);
  column->addWidget(new Symbol(QStringLiteral("hand.raised.fill"), 28, theme::Tone::warning, this),
                    0, Qt::AlignHCenter);
  column->addLayout(texts);
  column->addWidget(makeButtons(deep), 0, Qt::AlignHCenter);
  column->addWidget(centred(settingsFailure_));
  column->addWidget(saveButton_, 0, Qt::AlignHCenter);
  column->addStretch(1);
}

QWidget* AccessibilityRequiredGateView::makeButtons(const QColor& deep) {
  auto* const buttons = new QWidget(this);
  auto* const row = makeRow(10, buttons);
  auto* const allow = new BorderedButton(tr("Allow"), {}, buttons);
  allow->setObjectName(QStringLiteral("allowButton"));
  allow->setAccessibleDescription(tr("Asks to switch on accessibility for Mirvane"));
  connect(allow, &QPushButton::clicked, this, [this] { accessibility_.promptForTrust(*this); });
  row->addWidget(allow);

  auto* const settings = new BorderedButton(tr("Settings"), deep, buttons);
  settings->setObjectName(QStringLiteral("settingsButton"));
  settings->setAccessibleDescription(tr("Opens the accessibility settings of the desktop"));
  connect(settings, &QPushButton::clicked, this, [this] { openSettings(); });
  row->addWidget(settings);
  return buttons;
}

void AccessibilityRequiredGateView::ask(Grant grant) {
  if (consent_ != nullptr) return consent_->activateWindow();
  const QString text =
      tr("It reads the text you type and corrects it. %1\n\nAllowing this switches on the "
         "accessibility service of your desktop; you can switch it off again in the desktop's "
         "settings.")
          .arg(otherProgramsConsent(otherPrograms_));
  consent_ = new StudyDialog({QStringLiteral("hand.raised.fill"),
                              tr("Allow this application to use accessibility?"), text},
                             this);
  consent_->setObjectName(QStringLiteral("consentDialog"));
  consent_->addChoice(tr("Allow"), StudyDialog::ChoiceRole::other,
                      [this, grant = std::move(grant)] {
                        if (const auto failure = grant()) explainFailure(*failure);
                      });
  consent_->addChoice(tr("Don't Allow"), StudyDialog::ChoiceRole::safe);
  consent_->open();
}

void AccessibilityRequiredGateView::explainFailure(const std::string& reason) {
  auto* const dialog = new StudyDialog(
      {QStringLiteral("exclamationmark.triangle.fill"),
       tr("Accessibility could not be switched on."), QString::fromStdString(reason)},
      this);
  dialog->setObjectName(QStringLiteral("trustFailureDialog"));
  dialog->addChoice(tr("OK"), StudyDialog::ChoiceRole::safe);
  dialog->open();
}

void AccessibilityRequiredGateView::setOffersSaving(bool offersSaving) {
  saveButton_->setVisible(offersSaving);
}

void AccessibilityRequiredGateView::openSettings() {
  settingsFailure_->setVisible(!workspace_.openUrl(accessibilitySettingsUrl));
}

}  // namespace mirvane
