#pragma once

#include <QSize>

class QWidget;

namespace mirvane {

/// What the window manager leaves of the screen for the contents of `window`.
[[nodiscard]] QSize roomOnScreen(const QWidget& window);

/// Gives `window` this minimum size, or as much of it as its screen has room for, on every screen
/// that it is moved to.
void keepOnScreen(QWidget& window, QSize minimumSize);

}  // namespace mirvane
