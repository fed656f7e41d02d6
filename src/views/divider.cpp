#include "views/divider.h"

#include <QPainter>

#include "views/accessible_parts.h"
#include "views/theme.h"

namespace mirvane {

Divider::Divider(Qt::Orientation orientation, QWidget* parent) : QWidget(parent) {
  hideFromAssistiveTechnology(*this);
  if (orientation == Qt::Horizontal) {
    setFixedHeight(1);
  } else {
    setFixedWidth(1);
  }
}

void Divider::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), theme::divider(palette()));
}

}  // namespace mirvane
