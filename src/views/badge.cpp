#include "views/badge.h"

#include <QLinearGradient>
#include <QPainter>

#include "views/accessible_parts.h"
#include "views/symbol.h"
#include "views/theme.h"

namespace mirvane {

Badge::Badge(const Content& content, QWidget* parent) : QWidget(parent), content_(content) {
  setFixedSize(content.side, content.side);
  setAccessibleName(content.text);
  hideFromAssistiveTechnology(*this);
}

void Badge::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (theme::isHighContrast(palette())) {
    const auto look = theme::filled(theme::deep(), palette());
    drawContent(painter, look.fill, look.text);
    return;
  }
  // A character is read like any text: the pale end of the gradient lies outside of its strokes.
  const double length = content_.symbol.isEmpty() ? 1.3 : 1;
  QLinearGradient gradient(rect().topLeft(), QPointF(rect().bottomRight()) * length);
  gradient.setColorAt(0, theme::deep());
  gradient.setColorAt(1, theme::sky());
  drawContent(painter, gradient, Qt::white);
}

void Badge::drawContent(QPainter& painter, const QBrush& disc, const QColor& color) const {
  painter.setPen(Qt::NoPen);
  painter.setBrush(disc);
  painter.drawEllipse(rect());
  if (!content_.symbol.isEmpty()) {
    drawSymbol(painter, rect(), content_.symbol, content_.pointSize, color);
    return;
  }
  painter.setPen(color);
  painter.setFont(theme::font(content_.pointSize, QFont::Bold));
  painter.drawText(rect(), Qt::AlignCenter, content_.text);
}

}  // namespace mirvane
