#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "text/utf16.h"

namespace mirvane {

/// What fields hold for what keys have typed: Return types another line end than theirs.
[[nodiscard]] inline std::u16string asInFields(std::string_view typed) {
  auto text = text::toUtf16(typed);
  std::replace(text.begin(), text.end(), u'\r', u'\n');
  return text;
}

/// Rich texts hold no-break spaces for typed ones that a browser would else not show.
[[nodiscard]] inline std::u16string withPlainSpaces(std::u16string text) {
  std::replace(text.begin(), text.end(), u'\u00A0', u' ');
  return text;
}

}  // namespace mirvane
