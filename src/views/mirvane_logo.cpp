#include "views/mirvane_logo.h"

#include <QLinearGradient>
#include <QPainter>
#include <array>

#include "views/accessible_parts.h"
#include "views/theme.h"

namespace mirvane {
namespace {

constexpr double unitsPerSide = 22;
constexpr std::array<double, 3> barLengths{11, 8, 4};
constexpr double barHeight = 3;
constexpr double barGap = 3;
constexpr double barRadius = 2;
constexpr double barOpacity = 0.92;

/// The bars stand under each other from the same left edge, centred as one mark.
void drawBars(QPainter& painter, const QRectF& square) {
  const double unit = square.width() / unitsPerSide;
  const double markHeight = barHeight * 3 + barGap * 2;
  const double left = square.center().x() - barLengths.front() / 2 * unit;
  double top = square.center().y() - markHeight / 2 * unit;
  painter.setBrush(theme::withOpacity(Qt::white, barOpacity));
  for (const double length : barLengths) {
    const QRectF bar(left, top, length * unit, barHeight * unit);
    const double radius = std::min(barRadius, bar.height() / 2);
    painter.drawRoundedRect(bar, radius, radius);
    top += (barHeight + barGap) * unit;
  }
}

}  // namespace

void drawLogo(QPainter& painter, const QRectF& square, double cornerRadius, const QColor& deep,
              const QColor& sky) {
  QLinearGradient gradient(square.topLeft(), square.bottomRight());
  gradient.setColorAt(0, deep);
  gradient.setColorAt(1, sky);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(gradient);
  painter.drawRoundedRect(square, cornerRadius, cornerRadius);
  drawBars(painter, square);
}

MirvaneLogo::MirvaneLogo(int size, double cornerRadius, const QColor& deep, const QColor& sky,
                         QWidget* parent)
    : QWidget(parent), cornerRadius_(cornerRadius), deep_(deep), sky_(sky) {
  setFixedSize(size, size);
  hideFromAssistiveTechnology(*this);
}

void MirvaneLogo::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  drawLogo(painter, rect(), cornerRadius_, deep_, sky_);
}

}  // namespace mirvane
