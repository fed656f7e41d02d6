#include "tests/views/study_world.h"

#include <QLabel>

namespace mirvane {

QStringList shownTexts(const QWidget& screen) {
  QStringList texts;
  for (const auto* label : screen.findChildren<QLabel*>()) {
    if (label->isVisibleTo(&screen)) texts << label->text();
  }
  return texts;
}

}  // namespace mirvane
