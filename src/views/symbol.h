#pragma once

#include <QColor>
#include <QPixmap>
#include <QWidget>

#include "views/theme.h"

namespace mirvane {

/// The symbol `name` in one colour, `side` device-independent pixels wide and high, sharp at any
/// scale. White parts of its drawing are left out.
[[nodiscard]] QPixmap tintedSymbol(const QString& name, int side, const QColor& color,
                                   qreal devicePixelRatio);

/// The side of a symbol beside a text of this size.
[[nodiscard]] int symbolSide(int pointSize);

/// Draws a symbol centred in a rectangle.
void drawSymbol(QPainter& painter, const QRectF& rect, const QString& name, int side,
                const QColor& color);

/// A symbol beside a text. It repeats what the text says, so assistive technology passes it over.
class Symbol : public QWidget {
  Q_OBJECT

 public:
  /// `pointSize` is the size of the text it stands beside.
  Symbol(const QString& name, int pointSize, theme::Tone tone, QWidget* parent = nullptr);

  void setSymbol(const QString& name, theme::Tone tone);
  /// Draws in this colour instead of the tone's.
  void setColor(const QColor& color);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString name_;
  int side_;
  theme::Tone tone_;
  QColor color_;
};

}  // namespace mirvane
