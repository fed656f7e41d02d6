#pragma once

#include <QList>
#include <QString>
#include <QWidget>

namespace mirvane {

/// A text as a widget has painted it.
struct PaintedText {
  QString text;
  double contrast = 0;  ///< the lowest between the text and what lies under one of its strokes
};

/// All texts that `window` paints now, its children included, however they come about.
[[nodiscard]] QList<PaintedText> paintedTexts(QWidget& window);

}  // namespace mirvane
