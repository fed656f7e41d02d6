#pragma once

#include <QWidget>

namespace mirvane {

/// The logo with the name beside it.
class MirvaneLockup : public QWidget {
  Q_OBJECT

 public:
  MirvaneLockup(int iconSize, int fontSize, QWidget* parent = nullptr);
};

}  // namespace mirvane
