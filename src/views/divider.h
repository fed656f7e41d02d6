#pragma once

#include <QWidget>

namespace mirvane {

/// A hairline across or down the whole of a layout.
class Divider : public QWidget {
  Q_OBJECT

 public:
  explicit Divider(Qt::Orientation orientation, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace mirvane
