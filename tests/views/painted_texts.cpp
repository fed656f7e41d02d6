#include "tests/views/painted_texts.h"

#include <QImage>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "views/theme.h"

namespace mirvane {
namespace {

/// Paints everything but texts on a picture, and measures each text against what is there.
class TextMeter : public QPaintEngine {
 public:
  explicit TextMeter(const QSize& size)
      : QPaintEngine(AllFeatures), picture_(size, QImage::Format_ARGB32_Premultiplied) {
    picture_.fill(Qt::transparent);
  }

  [[nodiscard]] const QList<PaintedText>& texts() const { return texts_; }

  bool begin(QPaintDevice* /*device*/) override { return painter_.begin(&picture_); }
  bool end() override { return painter_.end(); }
  [[nodiscard]] Type type() const override { return User; }

  void updateState(const QPaintEngineState& now) override {
    const auto changed = now.state();
    if (changed & DirtyPen) painter_.setPen(now.pen());
    if (changed & (DirtyBrush | DirtyBrushOrigin)) {
      painter_.setBrush(now.brush());
      painter_.setBrushOrigin(now.brushOrigin());
    }
    if (changed & DirtyOpacity) painter_.setOpacity(now.opacity());
    if (changed & DirtyHints) painter_.setRenderHints(now.renderHints());
    if (changed & DirtyCompositionMode) painter_.setCompositionMode(now.compositionMode());
    if (changed & DirtyTransform) painter_.setTransform(now.transform());
    if (changed & DirtyClipEnabled) painter_.setClipping(now.isClipEnabled());
    if (changed & DirtyClipPath) painter_.setClipPath(now.clipPath(), now.clipOperation());
    if (changed & DirtyClipRegion) painter_.setClipRegion(now.clipRegion(), now.clipOperation());
  }

  void drawPixmap(const QRectF& rect, const QPixmap& pixmap, const QRectF& source) override {
    painter_.drawPixmap(rect, pixmap, source);
  }
  void drawImage(const QRectF& rect, const QImage& image, const QRectF& source,
                 Qt::ImageConversionFlags flags) override {
    painter_.drawImage(rect, image, source, flags);
  }
  void drawTiledPixmap(const QRectF& rect, const QPixmap& pixmap, const QPointF& offset) override {
    painter_.drawTiledPixmap(rect, pixmap, offset);
  }
  void drawPath(const QPainterPath& path) override { painter_.drawPath(path); }
  void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
    if (mode == PolylineMode) {
      painter_.drawPolyline(points, count);
    } else {
      painter_.drawPolygon(points, count);
    }
  }
  void drawTextItem(const QPointF& place, const QTextItem& item) override {
    if (item.text().trimmed().isEmpty() || boxOf(place, item).isEmpty()) return;
    QColor ink = painter_.pen().color();
    ink.setAlphaF(ink.alphaF() * static_cast<float>(painter_.opacity()));
    const QRect box = boxOf(place, item);
    const QImage strokes = strokesOf(place, item, box.topLeft(), box.size());
    double lowest = 22;
    for (int y = 0; y < strokes.height(); ++y) {
      for (int x = 0; x < strokes.width(); ++x) {
        if (qAlpha(strokes.pixel(x, y)) < 128) continue;
        const QColor back = picture_.pixelColor(box.topLeft() + QPoint(x, y));
        lowest = std::min(lowest, theme::contrast(theme::laidOver(back, ink), back));
      }
    }
    if (lowest <= 21) texts_ << PaintedText{item.text(), lowest};
  }

 private:
  [[nodiscard]] QRect boxOf(const QPointF& place, const QTextItem& item) const {
    const QRectF text(place.x(), place.y() - item.ascent(), item.width(),
                      item.ascent() + item.descent());
    return painter_.transform().mapRect(text).toAlignedRect() & picture_.rect();
  }

  [[nodiscard]] QImage strokesOf(const QPointF& place, const QTextItem& item, const QPoint& corner,
                                 const QSize& size) const {
    QImage strokes(size, picture_.format());
    strokes.fill(Qt::transparent);
    QPainter painter(&strokes);
    painter.setTransform(painter_.transform() *
                         QTransform::fromTranslate(-corner.x(), -corner.y()));
    if (painter_.hasClipping()) painter.setClipPath(painter_.clipPath());
    painter.setFont(item.font());
    painter.drawText(place, item.text());
    return strokes;
  }

  QImage picture_;
  QPainter painter_;
  QList<PaintedText> texts_;
};

class TextMeterDevice : public QPaintDevice {
 public:
  explicit TextMeterDevice(const QSize& size) : size_(size), meter_(size) {}

  [[nodiscard]] const QList<PaintedText>& texts() const { return meter_.texts(); }
  [[nodiscard]] QPaintEngine* paintEngine() const override { return &meter_; }

 protected:
  [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
    switch (metric) {
      case PdmWidth:
        return size_.width();
      case PdmHeight:
        return size_.height();
      case PdmDepth:
        return 32;
      case PdmDpiX:
      case PdmDpiY:
      case PdmPhysicalDpiX:
      case PdmPhysicalDpiY:
        return 96;
      case PdmDevicePixelRatio:
        return 1;
      case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
      default:
        return QPaintDevice::metric(metric);
    }
  }

 private:
  QSize size_;
  mutable TextMeter meter_;
};

}  // namespace

QList<PaintedText> paintedTexts(QWidget& window) {
  TextMeterDevice device(window.size());
  window.render(&device);
  return device.texts();
}

}  // namespace mirvane
