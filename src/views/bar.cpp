#include "views/bar.h"

#include <QPainter>

#include "views/theme.h"

namespace mirvane {

QList<QColor> Bar::fills() const {
  return {theme::bar(palette())};
}

void Bar::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), fills().first());
}

}  // namespace mirvane
