#include "views/symbol.h"

#include <QImage>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <cmath>

#include "views/accessible_parts.h"
#include "views/surface.h"

/// The drawings lie in a static library, which leaves them to whoever uses them first.
static void loadDrawings() {
  Q_INIT_RESOURCE(symbols);
}

namespace mirvane {
namespace {

/// Symbols stand a little taller than the text beside them.
constexpr double sidePerPoint = 1.25;

QImage drawing(const QString& name, int pixels) {
  QImage image(pixels, pixels, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  loadDrawings();
  QSvgRenderer renderer(QStringLiteral(":/symbols/%1.svg").arg(name));
  QPainter painter(&image);
  renderer.render(&painter, QRectF(0, 0, pixels, pixels));
  return image;
}

/// Black becomes the colour, white becomes a hole.
void tint(QImage& image, const QColor& color) {
  for (int y = 0; y < image.height(); ++y) {
    auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      const int ink = qAlpha(line[x]) * (255 - qGray(line[x])) / 255;
      line[x] = qRgba(color.red(), color.green(), color.blue(), ink * color.alpha() / 255);
    }
  }
}

}  // namespace

QPixmap tintedSymbol(const QString& name, int side, const QColor& color, qreal devicePixelRatio) {
  const auto key = QStringLiteral("symbol/%1/%2/%3/%4")
                       .arg(name, color.name(QColor::HexArgb))
                       .arg(side)
                       .arg(devicePixelRatio);
  QPixmap pixmap;
  if (QPixmapCache::find(key, &pixmap)) return pixmap;
  QImage image = drawing(name, static_cast<int>(std::ceil(side * devicePixelRatio)));
  tint(image, color);
  image.setDevicePixelRatio(devicePixelRatio);
  pixmap = QPixmap::fromImage(image);
  QPixmapCache::insert(key, pixmap);
  return pixmap;
}

void drawSymbol(QPainter& painter, const QRectF& rect, const QString& name, int side,
                const QColor& color) {
  const auto ratio = painter.device()->devicePixelRatioF();
  const QPointF corner = rect.center() - QPointF(side, side) / 2;
  painter.drawPixmap(corner, tintedSymbol(name, side, color, ratio));
}

int symbolSide(int pointSize) {
  return static_cast<int>(std::lround(pointSize * sidePerPoint));
}

Symbol::Symbol(const QString& name, int pointSize, theme::Tone tone, QWidget* parent)
    : QWidget(parent), name_(name), side_(symbolSide(pointSize)), tone_(tone) {
  setFixedSize(side_, side_);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hideFromAssistiveTechnology(*this);
}

void Symbol::setSymbol(const QString& name, theme::Tone tone) {
  name_ = name;
  tone_ = tone;
  update();
}

void Symbol::setColor(const QColor& color) {
  color_ = color;
  update();
}

void Symbol::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor color = color_.isValid() ? color_
                                        : theme::color(tone_, palette(), surfacesBehind(*this),
                                                       theme::symbolContrast);
  drawSymbol(painter, rect(), name_, side_, color);
}

}  // namespace mirvane
