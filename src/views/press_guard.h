#pragma once

class QWidget;

namespace mirvane {

/// Object name of the timer that ends the wait, a child of the guarded widget.
inline constexpr const char* pressGuardTimer = "pressGuard";

/// To be called when a screen or a dialog has just come up, which may stand where something else
/// stood: for a second none of its buttons is ready (`RoundedButton::setReady`), so that the rest
/// of a double click and a key struck twice do nothing. Then they become ready by themselves. The
/// focus stays where it is. Called again during the wait, the second begins again.
void guardPresses(QWidget& arrival);

}  // namespace mirvane
