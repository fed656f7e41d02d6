#pragma once

#include <QColor>
#include <QWidget>

#include "views/surface.h"

namespace mirvane {

/// The rounded border of a text field: in the accent colour and thicker while the field has the
/// focus, faint otherwise. A click on it is one into the field.
class FieldFrame : public QWidget, public Surface {
  Q_OBJECT

 public:
  /// Takes `field` in and draws in place of its own frame.
  FieldFrame(QWidget* field, const QColor& accent, QWidget* parent = nullptr);

  [[nodiscard]] QList<QColor> fills() const override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  /// The placeholder on the field, and selected text on its mark.
  void makeTextsReadable();

  QWidget* field_;
  QColor accent_;
};

}  // namespace mirvane
