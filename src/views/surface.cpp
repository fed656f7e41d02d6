#include "views/surface.h"

#include <QWidget>

#include "views/theme.h"

namespace mirvane {

QList<QColor> laidOver(const QList<QColor>& behind, const QList<QColor>& fills) {
  if (fills.isEmpty()) return behind;
  QList<QColor> result;
  for (const auto& back : behind) {
    for (const auto& fill : fills) result << theme::laidOver(back, fill);
  }
  return result;
}

QList<QColor> surfacesBehind(const QWidget& widget) {
  const auto* const parent = widget.parentWidget();
  if (widget.isWindow() || parent == nullptr) return {widget.palette().color(QPalette::Window)};
  const auto* const surface = dynamic_cast<const Surface*>(parent);
  return laidOver(surfacesBehind(*parent), surface != nullptr ? surface->fills() : QList<QColor>{});
}

}  // namespace mirvane
