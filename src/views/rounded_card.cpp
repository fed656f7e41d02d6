#include "views/rounded_card.h"

#include <QLinearGradient>
#include <QPainter>

#include "views/theme.h"

namespace mirvane {

RoundedCard::RoundedCard(const Look& look, QWidget* parent) : QWidget(parent), look_(look) {}

void RoundedCard::paintEvent(QPaintEvent* /*event*/) {
  // A dark window swallows the deep blue: faint fills take the readable shade there.
  const bool isDark = theme::isDark(palette());
  const QColor start = isDark ? theme::readable(look_.color, palette()) : look_.color;
  const QColor end = look_.endColor.isValid() ? look_.endColor : start;
  QLinearGradient fill(rect().topLeft(), rect().bottomRight());
  fill.setColorAt(0, theme::withOpacity(start, look_.fillOpacity));
  fill.setColorAt(1, theme::withOpacity(end, look_.fillOpacity));

  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(fill);
  painter.setPen(QPen(theme::withOpacity(start, look_.outlineOpacity), 1));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), look_.cornerRadius,
                          look_.cornerRadius);
}

}  // namespace mirvane
