#pragma once

class QWidget;

namespace mirvane {

/// Gives `part` the focus whenever `screen` gets it. A focus proxy would do the same, and would
/// also take the focus from every other part of the screen that Tab has just reached.
void giveFirstFocus(QWidget& screen, QWidget& part);

}  // namespace mirvane
