#pragma once

#include <string>
#include <string_view>

#include "platform/simulated/text_element.h"

namespace mirvane::simulated {

/// Makes an element from a text in which "|" marks the caret and "^", if there is one, the other
/// end of the selection.
TextElement elementShowing(std::string_view marked, ElementKind kind = ElementKind::multiLine);

/// The element's text with its caret marked "|"; a selection begins with "^" and ends with "|".
std::string shownBy(const TextElement& element);

}  // namespace mirvane::simulated
