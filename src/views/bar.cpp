#include "views/bar.h"

#include <QPainter>

#include "views/theme.h"

namespace mirvane {

void Bar::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), theme::bar(palette()));
}

}  // namespace mirvane
