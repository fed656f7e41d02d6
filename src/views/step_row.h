#pragma once

#include <QColor>
#include <QWidget>

#include "views/surface.h"

namespace mirvane {

class Symbol;
class TextLabel;

/// One step of the sidebar; the current one is filled and bold, and says so to assistive
/// technology.
class StepRow : public QWidget, public Surface {
  Q_OBJECT

 public:
  StepRow(const QString& title, const QString& symbol, const QColor& deep,
          QWidget* parent = nullptr);

  void setCurrent(bool isCurrent);
  [[nodiscard]] bool isCurrent() const { return isCurrent_; }
  [[nodiscard]] QList<QColor> fills() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void applyColors();

  QString title_;
  QColor deep_;
  Symbol* symbol_;
  TextLabel* label_;
  bool isCurrent_ = false;
};

}  // namespace mirvane
