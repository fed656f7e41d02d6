#include "views/step_row.h"

#include <QEvent>
#include <QPainter>

#include "views/accessible_parts.h"
#include "views/layouts.h"
#include "views/symbol.h"
#include "views/text_label.h"
#include "views/theme.h"

namespace mirvane {
namespace {

constexpr int titleSize = 13;

}  // namespace

StepRow::StepRow(const QString& title, const QString& symbol, const QColor& deep, QWidget* parent)
    : QWidget(parent),
      title_(title),
      deep_(deep),
      symbol_(new Symbol(symbol, 12, theme::Tone::secondary, this)),
      label_(new TextLabel(title, titleSize, QFont::Normal, theme::Tone::primary, this)) {
  setAccessibleRole(*this, QAccessible::ListItem);
  symbol_->setObjectName(symbol);
  symbol_->setFixedWidth(16);
  auto* const row = makeRow(8, this);
  row->setContentsMargins(10, 7, 10, 7);
  row->addWidget(symbol_, 0, Qt::AlignVCenter);
  row->addWidget(label_, 1);
  setCurrent(false);
}

void StepRow::setCurrent(bool isCurrent) {
  isCurrent_ = isCurrent;
  label_->setFont(theme::font(titleSize, isCurrent ? QFont::DemiBold : QFont::Normal));
  setAccessibleName(isCurrent ? tr("%1, current step").arg(title_) : title_);
  applyColors();
  update();
}

void StepRow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) applyColors();
}

void StepRow::applyColors() {
  const QColor color = isCurrent_ ? theme::filled(deep_, palette()).text : QColor();
  symbol_->setColor(color);
  label_->setFixedColor(color);
}

QList<QColor> StepRow::fills() const {
  return isCurrent_ ? QList<QColor>{theme::filled(deep_, palette()).fill} : QList<QColor>{};
}

void StepRow::paintEvent(QPaintEvent* /*event*/) {
  if (!isCurrent_) return;
  constexpr double cornerRadius = 7;
  const auto look = theme::filled(deep_, palette());
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(look.outline);
  painter.setBrush(look.fill);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius,
                          cornerRadius);
}

}  // namespace mirvane
