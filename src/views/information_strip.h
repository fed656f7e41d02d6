#pragma once

#include <QColor>
#include <QStringList>
#include <QWidget>

namespace mirvane {

/// A strip across the screen, faintly in the accent colour: a title and secondary lines.
class InformationStrip : public QWidget {
  Q_OBJECT

 public:
  InformationStrip(const QString& title, const QStringList& lines, const QColor& accent,
                   QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor accent_;
};

}  // namespace mirvane
