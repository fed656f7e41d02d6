#include "views/intro_view.h"

#include <QShowEvent>
#include <array>
#include <utility>

#include "views/accessible_parts.h"
#include "views/announcer.h"
#include "views/first_focus.h"
#include "views/information_strip.h"
#include "views/layouts.h"
#include "views/mirvane_info_card.h"
#include "views/mirvane_logo.h"
#include "views/mirvane_primary_button.h"
#include "views/mirvane_rule_row.h"
#include "views/scroll_column.h"
#include "views/scroll_keys.h"
#include "views/section_heading.h"
#include "views/step_tile.h"
#include "views/symbol.h"
#include "views/text_label.h"
#include "views/theme.h"

namespace mirvane {
namespace {

QWidget* makeList(const QString& name, QWidget* parent) {
  auto* const list = new QWidget(parent);
  setAccessibleRole(*list, QAccessible::List);
  list->setAccessibleName(name);
  return list;
}

}  // namespace

IntroView::IntroView(std::function<void()> onNext, const QColor& deep, const QColor& sky,
                     const QStringList& warnings, QWidget* parent)
    : QWidget(parent), announcer_(new Announcer(this, Announcer::afterTheFocus)) {
  auto* const scroll = new ScrollColumn(14, this);
  auto& column = scroll->column();
  column.addWidget(makeWelcome(deep));
  column.addWidget(makeIntroduction(deep));
  column.addWidget(makeRules());
  column.addWidget(makeSessionFlow(sky));
  column.addStretch(1);
  // On a small screen the texts scroll above it, and it stays.
  auto* const start = new MirvanePrimaryButton(tr("Start"), QStringLiteral("arrow.right"), deep,
                                               std::move(onNext), this);
  start->setObjectName(QStringLiteral("startButton"));
  start->setAccessibleDescription(tr("Goes to the practice"));
  auto* const whole = makeColumn(0, this);
  if (!warnings.isEmpty()) {
    auto* const strip =
        new InformationStrip(tr("For the study team"), warnings, theme::orange(), this);
    strip->setObjectName(QStringLiteral("studyWarnings"));
    whole->addWidget(strip);
  }
  whole->addWidget(scroll, 1);
  auto* const bottom = makeColumn(0);
  bottom->setContentsMargins(24, 0, 24, 16);
  bottom->addWidget(start);
  whole->addLayout(bottom);
  scrollByKeys(*scroll, *start);
  giveFirstFocus(*this, *start);
}

void IntroView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!event->spontaneous()) announcer_->announcements().say(rules_.trimmed());
}

QWidget* IntroView::makeWelcome(const QColor& deep) {
  auto* const welcome = new QWidget(this);
  auto* const texts = makeColumn(2);
  auto* const beta =
      new TextLabel(tr("Mirvane Beta"), 12, QFont::DemiBold, theme::Tone::secondary, welcome);
  beta->setAccent(deep);
  texts->addWidget(beta);
  auto* const title = new TextLabel(tr("Thanks for helping us test Mirvane"), 22, QFont::Bold,
                                    theme::Tone::primary, welcome);
  title->setHeading();
  texts->addWidget(title);
  auto* const row = makeRow(14, welcome);
  row->addWidget(new MirvaneLogo(48, 12, theme::deep(), theme::sky(), welcome));
  row->addLayout(texts, 1);
  return welcome;
}

QWidget* IntroView::makeIntroduction(const QColor& deep) {
  auto* const card = new MirvaneInfoCard(deep, this);
  card->content().addWidget(new SectionHeading(tr("Introduction"), {}, {}, card));
  card->content().addWidget(new TextLabel(
      tr("Before starting the typing sessions, please review the rules and session flow. Mirvane "
         "will handle corrections automatically while you type naturally."),
      13, QFont::Normal, theme::Tone::secondary, card));
  return card;
}

QWidget* IntroView::makeRules() {
  const std::array<std::pair<const char*, QString>, 4> rules{{
      {"delete.left", tr("Do NOT use Backspace.")},
      {"hand.raised.fill", tr("Let Mirvane handle corrections.")},
      {"tortoise", tr("Type at your natural speed.")},
      {"timer", tr("Do not slow down intentionally.")},
  }};
  auto* const card = new MirvaneInfoCard(theme::orange(), this);
  card->content().addWidget(new SectionHeading(
      tr("Important rules"), QStringLiteral("exclamationmark.triangle.fill"), {}, card));
  auto* const list = makeList(tr("Important rules"), card);
  auto* const rows = makeColumn(10, list);
  rules_ = tr("Important rules") + QStringLiteral(": ");
  for (const auto& [icon, text] : rules) {
    rows->addWidget(new MirvaneRuleRow(QString::fromLatin1(icon), text, list));
    rules_ += text + u' ';
  }
  card->content().addWidget(list);
  return card;
}

QWidget* IntroView::makeSessionFlow(const QColor& sky) {
  struct Step {
    QString badge, name, description;
  };
  const std::array<Step, 4> steps{{
      {tr("P"), tr("Practice"), tr("Try controls")},
      {tr("1"), tr("Session 1"), tr("Auto-correct")},
      {tr("2"), tr("Session 2"), tr("Cycle key ⌥")},
      {tr("R"), tr("Results"), tr("Save & send")},
  }};
  auto* const card = new MirvaneInfoCard(sky, this);
  card->content().addWidget(new SectionHeading(tr("Session flow"), {}, {}, card));
  auto* const list = makeList(tr("Session flow"), card);
  auto* const tiles = makeRow(8, list);
  for (const auto& step : steps) {
    if (tiles->count() > 0) {
      tiles->addWidget(new Symbol(QStringLiteral("arrow.right"), 12, theme::Tone::tertiary, list),
                       0, Qt::AlignVCenter);
    }
    auto* const tile = new StepTile(step.badge, step.name, step.description, list);
    tile->setObjectName(QStringLiteral("stepTile"));
    tiles->addWidget(tile, 1);
  }
  card->content().addWidget(list);
  return card;
}

}  // namespace mirvane
