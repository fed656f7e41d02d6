#pragma once

#include <QColor>
#include <QList>

class QWidget;

namespace mirvane {

/// A widget that paints behind what stands on it. Whoever draws a text asks `surfacesBehind` for
/// what it is read against.
class Surface {
 public:
  Surface() = default;
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;
  virtual ~Surface() = default;

  /// What it fills itself with: one colour, the two ends of a gradient, or nothing. May be
  /// translucent.
  [[nodiscard]] virtual QList<QColor> fills() const = 0;
};

/// Each of `fills` over each of `behind`, opaque; `behind` itself where there are no fills.
[[nodiscard]] QList<QColor> laidOver(const QList<QColor>& behind, const QList<QColor>& fills);

/// The opaque colours that `widget` may stand on.
[[nodiscard]] QList<QColor> surfacesBehind(const QWidget& widget);

}  // namespace mirvane
