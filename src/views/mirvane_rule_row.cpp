#include "views/mirvane_rule_row.h"

#include "views/accessible_parts.h"
#include "views/layouts.h"
#include "views/symbol.h"
#include "views/text_label.h"
#include "views/theme.h"

namespace mirvane {

MirvaneRuleRow::MirvaneRuleRow(const QString& icon, const QString& text, QWidget* parent)
    : QWidget(parent) {
  setAccessibleRole(*this, QAccessible::ListItem);
  setAccessibleName(text);
  auto* const symbol = new Symbol(icon, 12, theme::Tone::warning, this);
  symbol->setObjectName(icon);
  symbol->setFixedWidth(18);
  auto* const row = makeRow(8, this);
  row->addWidget(symbol, 0, Qt::AlignVCenter);
  row->addWidget(new TextLabel(text, 13, QFont::Normal, theme::Tone::secondary, this), 1);
}

}  // namespace mirvane
