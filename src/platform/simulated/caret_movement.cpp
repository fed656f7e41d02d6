#include "platform/simulated/caret_movement.h"

#include <algorithm>

#include "text/characters.h"

namespace mirvane::simulated {
namespace {

/// Enough for any character in use, little enough to look at for every key.
constexpr std::int64_t longestCharacter = 256;

std::int64_t outsideCharacter(const EditableText& text, std::int64_t position) {
  const std::int64_t previous = previousCharacter(text, position);
  return nextCharacter(text, previous) > position ? previous : position;
}

}  // namespace

std::int64_t previousCharacter(const EditableText& text, std::int64_t position) {
  const std::int64_t from = std::max<std::int64_t>(0, position - longestCharacter);
  if (from == position) return position;
  const auto before = text.slice({from, position - from});
  return from + static_cast<std::int64_t>(text::lastCharacterStart(before));
}

std::int64_t nextCharacter(const EditableText& text, std::int64_t position) {
  const std::int64_t length = std::min(longestCharacter, text.size() - position);
  if (length == 0) return position;
  const auto behind = text.slice({position, length});
  return position + static_cast<std::int64_t>(text::firstCharacterEnd(behind));
}

std::int64_t lineStart(const EditableText& text, std::int64_t position) {
  while (position > 0 && text.unitAt(position - 1) != u'\n') --position;
  return position;
}

std::int64_t lineEnd(const EditableText& text, std::int64_t position) {
  while (position < text.size() && text.unitAt(position) != u'\n') ++position;
  return position;
}

std::int64_t columnAt(const EditableText& text, std::int64_t position) {
  return position - lineStart(text, position);
}

std::int64_t positionLinesAway(const EditableText& text, std::int64_t position, int lines,
                               std::int64_t column) {
  std::int64_t start = lineStart(text, position);
  for (; lines < 0; ++lines) {
    if (start == 0) return 0;
    start = lineStart(text, start - 1);
  }
  for (; lines > 0; --lines) {
    const std::int64_t end = lineEnd(text, start);
    if (end == text.size()) return end;
    start = end + 1;
  }
  return outsideCharacter(text, std::min(start + column, lineEnd(text, start)));
}

}  // namespace mirvane::simulated
