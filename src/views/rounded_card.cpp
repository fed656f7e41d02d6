#include "views/rounded_card.h"

#include <QPainter>

#include "views/theme.h"

namespace mirvane {

RoundedCard::RoundedCard(const Look& look, QWidget* parent) : QWidget(parent), look_(look) {}

QList<QColor> RoundedCard::fills() const {
  QList<QColor> result{theme::faintFill(look_.color, look_.fillOpacity, palette())};
  if (look_.endColor.isValid()) {
    result << theme::faintFill(look_.endColor, look_.fillOpacity, palette());
  }
  return result;
}

void RoundedCard::paintEvent(QPaintEvent* /*event*/) {
  const auto shown = laidOver(surfacesBehind(*this).mid(0, 1), fills());
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  gradient_.draw(painter, rect(),
                 {shown.first(), shown.last(), Qt::BottomRightCorner, look_.cornerRadius});
  const double width = theme::outlineWidth(palette());
  const double inset = width / 2;
  painter.setPen(QPen(theme::faintOutline(look_.color, look_.outlineOpacity, palette()), width));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), look_.cornerRadius,
                          look_.cornerRadius);
}

}  // namespace mirvane
