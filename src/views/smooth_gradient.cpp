#include "views/smooth_gradient.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace mirvane {
namespace {

/// Between 0 and 1, evenly spread over neighbouring pixels: interleaved gradient noise (J. Jimenez,
/// "Next Generation Post Processing in Call of Duty: Advanced Warfare", SIGGRAPH 2014).
double noise(int x, int y) {
  const auto fraction = [](double value) { return value - std::floor(value); };
  return fraction(52.9829189 * fraction(0.06711056 * x + 0.00583715 * y));
}

/// How far a pixel lies on the way from the first colour to the second, 0 to 1.
double share(int x, int y, const QSize& size, Qt::Corner end) {
  const double width = size.width();
  const double height = end == Qt::BottomRightCorner ? size.height() : 0;
  return (x * width + y * height) / std::max(1.0, width * width + height * height);
}

QRgb pixel(const SmoothGradient::Look& look, double share, double threshold) {
  const auto step = [&](int from, int to) {
    return static_cast<int>(std::floor(from + (to - from) * share + threshold));
  };
  return qRgb(step(look.from.red(), look.to.red()), step(look.from.green(), look.to.green()),
              step(look.from.blue(), look.to.blue()));
}

QImage gradient(const QSize& size, const SmoothGradient::Look& look) {
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < size.height(); ++y) {
    auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < size.width(); ++x) {
      line[x] = pixel(look, share(x, y, size, look.end), noise(x, y));
    }
  }
  return image;
}

void roundCorners(QImage& image, const QRectF& rect, double cornerRadius) {
  QImage shape(image.size(), image.format());
  shape.setDevicePixelRatio(image.devicePixelRatio());
  shape.fill(Qt::transparent);
  QPainter brush(&shape);
  brush.setRenderHint(QPainter::Antialiasing);
  brush.setPen(Qt::NoPen);
  brush.setBrush(Qt::black);
  brush.drawRoundedRect(rect, cornerRadius, cornerRadius);
  brush.end();
  QPainter painter(&image);
  painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
  painter.drawImage(QPointF(), shape);
}

}  // namespace

void SmoothGradient::draw(QPainter& painter, const QRect& rect, const Look& look) {
  const qreal ratio = painter.device()->devicePixelRatioF();
  const QSize pixels = (QSizeF(rect.size()) * ratio).toSize();
  if (image_.size() != pixels || look_ != look) {
    look_ = look;
    image_ = gradient(pixels, look);
    image_.setDevicePixelRatio(ratio);
    if (look.cornerRadius > 0) {
      roundCorners(image_, QRectF(QPointF(), QSizeF(rect.size())), look.cornerRadius);
    }
  }
  painter.drawImage(rect.topLeft(), image_);
}

}  // namespace mirvane
