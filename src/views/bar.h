#pragma once

#include <QWidget>

#include "views/surface.h"

namespace mirvane {

/// The surface of the bars at the edges of a screen.
class Bar : public QWidget, public Surface {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  [[nodiscard]] QList<QColor> fills() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace mirvane
