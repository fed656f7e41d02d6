#pragma once

class QAbstractScrollArea;
class QWidget;

namespace mirvane {

/// Lets the arrows up and down, Page Up and Down, Home and End scroll `area` while `focused`, which
/// has no use for these keys, has the focus.
void scrollByKeys(QAbstractScrollArea& area, QWidget& focused);

}  // namespace mirvane
