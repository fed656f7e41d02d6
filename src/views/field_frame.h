#pragma once

#include <QColor>
#include <QWidget>

namespace mirvane {

/// The rounded border of a text field: in the accent colour and thicker while the field has the
/// focus, faint otherwise.
class FieldFrame : public QWidget {
  Q_OBJECT

 public:
  /// Takes `field` in and draws in place of its own frame.
  FieldFrame(QWidget* field, const QColor& accent, QWidget* parent = nullptr);

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QWidget* field_;
  QColor accent_;
};

}  // namespace mirvane
