#pragma once

#include <QWidget>

namespace mirvane {

/// Draws the logo, a square of this side: three bars on the brand's gradient.
void drawLogo(QPainter& painter, const QRectF& square, double cornerRadius, const QColor& deep,
              const QColor& sky);

class MirvaneLogo : public QWidget {
  Q_OBJECT

 public:
  MirvaneLogo(int size, double cornerRadius, const QColor& deep, const QColor& sky,
              QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  double cornerRadius_;
  QColor deep_;
  QColor sky_;
};

}  // namespace mirvane
