#include "views/checklist_row.h"

#include "views/accessible_parts.h"
#include "views/layouts.h"
#include "views/symbol.h"
#include "views/text_label.h"
#include "views/theme.h"

namespace mirvane {

ChecklistRow::ChecklistRow(const QString& text, QWidget* parent)
    : QWidget(parent),
      text_(text),
      symbol_(new Symbol(QStringLiteral("circle"), 14, theme::Tone::secondary, this)),
      label_(new TextLabel(text, 13, QFont::Medium, theme::Tone::secondary, this)) {
  auto* const row = makeRow(8, this);
  row->addWidget(symbol_, 0, Qt::AlignVCenter);
  row->addWidget(label_, 1);
  setAccessibleRole(*this, QAccessible::ListItem);
  setAccessibleName(tr("%1, open").arg(text));
}

void ChecklistRow::setDone() {
  if (isDone_) return;
  isDone_ = true;
  symbol_->setSymbol(QStringLiteral("checkmark.circle.fill"), theme::Tone::success);
  label_->setTone(theme::Tone::primary);
  setAccessibleName(tr("%1, done").arg(text_));
  Q_EMIT becameDone(accessibleName());
}

}  // namespace mirvane
