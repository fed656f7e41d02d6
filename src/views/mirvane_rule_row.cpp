#include "views/mirvane_rule_row.h"

#include "views/layouts.h"
#include "views/symbol.h"
#include "views/text_label.h"
#include "views/theme.h"

namespace mirvane {

MirvaneRuleRow::MirvaneRuleRow(const QString& icon, const QString& text, QWidget* parent)
    : QWidget(parent) {
  constexpr int symbolFrame = 18;
  auto* const frame = makeRow(0);
  auto* const symbol = new Symbol(icon, 12, theme::Tone::warning, this);
  symbol->setObjectName(icon);
  frame->addWidget(symbol, 0, Qt::AlignCenter);
  frame->addSpacing(symbolFrame - symbol->width());

  auto* const row = makeRow(8, this);
  row->addLayout(frame);
  row->addWidget(new TextLabel(text, 13, QFont::Normal, theme::Tone::secondary, this), 1);
}

}  // namespace mirvane
