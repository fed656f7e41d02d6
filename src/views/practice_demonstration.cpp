#include "views/practice_demonstration.h"

#include "views/layouts.h"
#include "views/section_heading.h"
#include "views/symbol.h"
#include "views/text_label.h"
#include "views/theme.h"

namespace mirvane {
namespace {

constexpr double plainOpacity = 0.05;
constexpr double highlightOpacity = 0.28;

QWidget* makeArrow(QWidget* parent) {
  return new Symbol(QStringLiteral("chevron.right"), 12, theme::Tone::tertiary, parent);
}

}  // namespace

PracticeDemonstration::PracticeDemonstration(const QString& misspelling, const QColor& deep,
                                             const QColor& sky, QWidget* parent)
    : MirvaneInfoCard(deep, parent), accent_(sky) {
  content().addWidget(new SectionHeading(tr("Word-only practice"), {}, {}, this));
  content().addWidget(
      new TextLabel(tr("Type one word, press Space, then use Right Option ⌥ to cycle candidates."),
                    13, QFont::Normal, theme::Tone::secondary, this));
  content().addWidget(new TextLabel(tr("On this keyboard: the right Alt key"), 11, QFont::Normal,
                                    theme::Tone::secondary, this));
  auto* const strip = makeRow(8);
  strip->addWidget(makePanel(tr("1. Type one word"), {makeBox(misspelling, plainOpacity, false)}),
                   1);
  strip->addWidget(makeArrow(this), 0, Qt::AlignVCenter);
  strip->addWidget(makePanel(tr("2. Press Space"), {makeBox(tr("hello"), highlightOpacity, true),
                                                    makeBox(tr("help"), plainOpacity, false),
                                                    makeBox(tr("helm"), plainOpacity, false)}),
                   1);
  strip->addWidget(makeArrow(this), 0, Qt::AlignVCenter);
  strip->addWidget(
      makePanel(tr("3. Right Option ⌥"), {makeBox(tr("⌥"), plainOpacity, true),
                                          makeBox(tr("help"), highlightOpacity, true)}),
      1);
  content().addLayout(strip);
}

QWidget* PracticeDemonstration::makePanel(const QString& title, const QList<QWidget*>& pictures) {
  auto* const panel = new QWidget(this);
  auto* const column = makeColumn(6, panel);
  auto* const label = new TextLabel(title, 11, QFont::Medium, theme::Tone::secondary, panel);
  label->setAlignment(Qt::AlignHCenter);
  column->addWidget(label);
  auto* const row = makeRow(4);
  row->addStretch(1);
  for (auto* const picture : pictures) row->addWidget(picture);
  row->addStretch(1);
  column->addLayout(row);
  column->addStretch(1);
  return panel;
}

QWidget* PracticeDemonstration::makeBox(const QString& text, double fillOpacity, bool isStrong) {
  auto* const box = new RoundedCard(
      {.color = accent_, .fillOpacity = fillOpacity, .outlineOpacity = 0.5, .cornerRadius = 6},
      this);
  auto* const label = new TextLabel(text, 12, isStrong ? QFont::DemiBold : QFont::Normal,
                                    theme::Tone::primary, box);
  label->setWordWrap(false);
  auto* const row = makeRow(0, box);
  row->setContentsMargins(7, 5, 7, 5);
  row->addWidget(label);
  return box;
}

}  // namespace mirvane
