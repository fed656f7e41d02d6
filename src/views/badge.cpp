#include "views/badge.h"

#include <QLinearGradient>
#include <QPainter>

#include "views/symbol.h"
#include "views/theme.h"

namespace mirvane {

Badge::Badge(const Content& content, QWidget* parent) : QWidget(parent), content_(content) {
  setFixedSize(content.side, content.side);
  setAccessibleName(content.text);
}

void Badge::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QLinearGradient gradient(rect().topLeft(), rect().bottomRight());
  gradient.setColorAt(0, theme::deep());
  gradient.setColorAt(1, theme::sky());
  painter.setPen(Qt::NoPen);
  painter.setBrush(gradient);
  painter.drawEllipse(rect());
  if (!content_.symbol.isEmpty()) {
    drawSymbol(painter, rect(), content_.symbol, content_.pointSize, Qt::white);
    return;
  }
  painter.setPen(Qt::white);
  painter.setFont(theme::font(content_.pointSize, QFont::Bold));
  painter.drawText(rect(), Qt::AlignCenter, content_.text);
}

}  // namespace mirvane
