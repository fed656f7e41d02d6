#pragma once

#include <QWidget>

namespace mirvane {

/// A disc on the brand's diagonal gradient with one character or one symbol, white and bold.
class Badge : public QWidget {
  Q_OBJECT

 public:
  struct Content {
    QString text = {};
    QString symbol = {};  ///< instead of the text
    int side = 28;
    int pointSize = 13;
  };

  explicit Badge(const Content& content, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void drawContent(QPainter& painter, const QBrush& disc, const QColor& color) const;

  Content content_;
};

}  // namespace mirvane
