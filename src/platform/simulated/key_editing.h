#pragma once

#include "platform/event_monitors.h"
#include "platform/simulated/text_element.h"

namespace mirvane::simulated {

/// What a key-down of a keyboard does in a text element: editing and caret keys by key code,
/// all others by their text. Nothing is inserted while Control or Command is held, nor for
/// control characters and the function-key characters U+F700 to U+F8FF.
void applyKey(const InputEvent& keyDown, TextElement& element);

/// What a synthesized key-down does: Backspace by key code, else its whole text is inserted.
void applySynthesizedKey(const InputEvent& keyDown, TextElement& element);

}  // namespace mirvane::simulated
