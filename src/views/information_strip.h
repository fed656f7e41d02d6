#pragma once

#include <QColor>
#include <QStringList>
#include <QWidget>

#include "views/surface.h"

namespace mirvane {

class Symbol;

/// A strip across the screen, faintly in the accent colour: a title and secondary lines.
class InformationStrip : public QWidget, public Surface {
  Q_OBJECT

 public:
  InformationStrip(const QString& title, const QStringList& lines, const QColor& accent,
                   QWidget* parent = nullptr);

  [[nodiscard]] QList<QColor> fills() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QColor accent_;
  Symbol* symbol_;
};

}  // namespace mirvane
