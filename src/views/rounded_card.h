#pragma once

#include <QColor>
#include <QWidget>

#include "views/smooth_gradient.h"
#include "views/surface.h"

namespace mirvane {

/// A rounded rectangle behind some content: a faint fill in one colour, or from one colour to
/// another along the diagonal, and a thin outline.
class RoundedCard : public QWidget, public Surface {
  Q_OBJECT

 public:
  struct Look {
    QColor color;
    QColor endColor = {};  ///< of the diagonal; invalid for an even fill
    double fillOpacity = 0.05;
    double outlineOpacity = 0.18;
    double cornerRadius = 12;
  };

  explicit RoundedCard(const Look& look, QWidget* parent = nullptr);

  [[nodiscard]] QList<QColor> fills() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Look look_;
  SmoothGradient gradient_;
};

}  // namespace mirvane
