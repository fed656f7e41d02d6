#pragma once

#include <cstdint>

#include "platform/simulated/editable_text.h"

namespace mirvane::simulated {

/// Places that carets go to, in UTF-16 units; a line ends before its "\n". `position` lies in
/// 0 ... size. Characters (grapheme clusters) are recognised up to 256 units long.

[[nodiscard]] std::int64_t previousCharacter(const EditableText& text, std::int64_t position);
[[nodiscard]] std::int64_t nextCharacter(const EditableText& text, std::int64_t position);

[[nodiscard]] std::int64_t lineStart(const EditableText& text, std::int64_t position);
[[nodiscard]] std::int64_t lineEnd(const EditableText& text, std::int64_t position);

/// How far `position` is from the start of its line, in UTF-16 units.
[[nodiscard]] std::int64_t columnAt(const EditableText& text, std::int64_t position);

/// The place `lines` further down (up when negative) at `column`, or at the line's end where the
/// line is shorter, never inside a character. Above the first line it is the start of the text,
/// below the last one its end.
[[nodiscard]] std::int64_t positionLinesAway(const EditableText& text, std::int64_t position,
                                             int lines, std::int64_t column);

}  // namespace mirvane::simulated
