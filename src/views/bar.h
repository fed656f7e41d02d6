#pragma once

#include <QWidget>

namespace mirvane {

/// The surface of the bars at the edges of a screen.
class Bar : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace mirvane
