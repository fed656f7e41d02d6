#pragma once

#include <memory>

#include "platform/accessibility.h"

class QWidget;

namespace mirvane {

/// `widget` as a text element, reached in process. Null when it is not a text field. A password
/// field has no text to read; a read-only one ignores writes of text. A replacement is one step of
/// the field's undo and one notice of change.
[[nodiscard]] std::shared_ptr<AccessibilityElement> makeQtTextElement(QWidget* widget);

}  // namespace mirvane
