#include "views/mirvane_step_sidebar.h"

#include "views/accessible_parts.h"
#include "views/divider.h"
#include "views/layouts.h"
#include "views/mirvane_lockup.h"
#include "views/rounded_card.h"
#include "views/section_heading.h"
#include "views/step_row.h"
#include "views/text_label.h"

namespace mirvane {
namespace {

struct StepTexts {
  const char* title;
  const char* symbol;
};

constexpr std::array<StepTexts, appSteps.size()> stepTexts{{
    {QT_TRANSLATE_NOOP("mirvane::MirvaneStepSidebar", "Intro"), "bolt.fill"},
    {QT_TRANSLATE_NOOP("mirvane::MirvaneStepSidebar", "Practice"), "keyboard"},
    {QT_TRANSLATE_NOOP("mirvane::MirvaneStepSidebar", "Session 1"), "space"},
    {QT_TRANSLATE_NOOP("mirvane::MirvaneStepSidebar", "Session 2"), "arrow.2.circlepath"},
    {QT_TRANSLATE_NOOP("mirvane::MirvaneStepSidebar", "Results"), "checkmark.circle"},
}};

}  // namespace

MirvaneStepSidebar::MirvaneStepSidebar(AppStep currentStep, const QColor& deep, QWidget* parent)
    : Bar(parent) {
  constexpr int sidebarWidth = 190;
  setFixedWidth(sidebarWidth);
  auto* const column = makeColumn(0, this);
  auto* const lockup = makeColumn(0);
  lockup->setContentsMargins(20, 22, 20, 18);
  lockup->addWidget(new MirvaneLockup(20, 13, this));
  column->addLayout(lockup);
  column->addWidget(new Divider(Qt::Horizontal, this));

  auto* const steps = new QWidget(this);
  setAccessibleRole(*steps, QAccessible::List);
  steps->setAccessibleName(tr("Steps of the study"));
  auto* const rows = makeColumn(2, steps);
  rows->setContentsMargins(10, 10, 10, 0);
  for (std::size_t i = 0; i < appSteps.size(); ++i) {
    const auto& texts = stepTexts.at(i);
    rows_.at(i) = new StepRow(tr(texts.title), QString::fromLatin1(texts.symbol), deep, steps);
    rows->addWidget(rows_.at(i));
  }
  column->addWidget(steps);
  column->addStretch(1);
  column->addWidget(makeTip());
  setCurrentStep(currentStep);
}

QWidget* MirvaneStepSidebar::makeTip() {
  auto* const holder = new QWidget(this);
  auto* const margins = makeColumn(0, holder);
  margins->setContentsMargins(12, 0, 12, 16);
  auto* const card = new RoundedCard(
      {.color = theme::orange(), .fillOpacity = 0.07, .outlineOpacity = 0.2, .cornerRadius = 8},
      holder);
  auto* const content = makeColumn(5, card);
  content->setContentsMargins(12, 12, 12, 12);
  content->addWidget(new SectionHeading(tr("Tip"), QStringLiteral("lightbulb.fill"),
                                        {.pointSize = 11, .textTone = theme::Tone::warning}, card));
  content->addWidget(new TextLabel(tr("Type naturally and let Mirvane help you."), 11,
                                   QFont::Normal, theme::Tone::secondary, card));
  margins->addWidget(card);
  return holder;
}

void MirvaneStepSidebar::setCurrentStep(AppStep step) {
  for (std::size_t i = 0; i < rows_.size(); ++i) rows_.at(i)->setCurrent(appSteps.at(i) == step);
}

}  // namespace mirvane
