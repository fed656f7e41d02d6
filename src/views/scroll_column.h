#pragma once

#include <QScrollArea>
#include <QVBoxLayout>

namespace mirvane {

/// The vertically scrolling column of a screen, 24 pixels from its edges. What gets the keyboard
/// focus is scrolled into view, and stays there when the window becomes smaller.
class ScrollColumn : public QScrollArea {
  Q_OBJECT

 public:
  explicit ScrollColumn(int spacing, QWidget* parent = nullptr);

  [[nodiscard]] QVBoxLayout& column() { return *column_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// The area alone would squeeze wrapped texts: it knows their narrowest height only.
  void keepTextsWhole();
  void showFocus();

  QVBoxLayout* column_;
};

}  // namespace mirvane
