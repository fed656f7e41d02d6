#include "views/step_row.h"

#include <QPainter>

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
  symbol_->setColor(isCurrent ? QColor(Qt::white) : QColor());
  label_->setFont(theme::font(titleSize, isCurrent ? QFont::DemiBold : QFont::Normal));
  label_->setFixedColor(isCurrent ? QColor(Qt::white) : QColor());
  setAccessibleName(isCurrent ? tr("%1, current step").arg(title_) : title_);
  update();
}

void StepRow::paintEvent(QPaintEvent* /*event*/) {
  if (!isCurrent_) return;
  constexpr double cornerRadius = 7;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  // On a dark window an edge keeps the deep row apart from its surroundings.
  const bool isDark = theme::isDark(palette());
  painter.setPen(isDark ? QPen(theme::withOpacity(Qt::white, 0.25), 1) : QPen(Qt::NoPen));
  painter.setBrush(deep_);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius,
                          cornerRadius);
}

}  // namespace mirvane
