#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>

namespace mirvane {

/// A rounded rectangle that goes from one colour to another that is close to it. A plain gradient
/// between close colours falls into stripes, as wide as the steps of a screen's colours are far
/// apart: here each pixel takes the one or the other step by chance, so that the eye sees the mean.
class SmoothGradient {
 public:
  struct Look {
    QColor from;  ///< opaque, as is `to`
    QColor to;
    Qt::Corner end = Qt::TopRightCorner;  ///< where `to` is reached, from the top left
    double cornerRadius = 0;

    bool operator==(const Look&) const = default;
  };

  /// Keeps what it has drawn for the next time.
  void draw(QPainter& painter, const QRect& rect, const Look& look);

 private:
  QImage image_;
  Look look_;
};

}  // namespace mirvane
