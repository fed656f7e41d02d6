#include "platform/simulated/text_element.h"

#include <algorithm>

#include "platform/simulated/caret_movement.h"
#include "text/utf16.h"

namespace mirvane::simulated {
namespace {

/// "\r\n" and "\r" become "\n".
std::u16string withPlainLineBreaks(std::u16string text) {
  for (std::size_t at = text.find(u'\r'); at != std::u16string::npos; at = text.find(u'\r', at)) {
    const bool isPair = at + 1 < text.size() && text[at + 1] == u'\n';
    text.replace(at, isPair ? 2 : 1, 1, u'\n');
  }
  return text;
}

}  // namespace

TextElement::TextElement(ElementKind kind, std::string_view text) : kind_(kind) {
  setText(text);
}

bool TextElement::hasLines() const {
  return kind_ != ElementKind::singleLine && kind_ != ElementKind::password;
}

std::string TextElement::text() const {
  return text::toUtf8(text_.slice({0, text_.size()}));
}

std::u16string TextElement::slice(Utf16Range range) const {
  return text_.slice(text_.clamped(range));
}

Utf16Range TextElement::selection() const {
  const auto [from, to] = std::minmax(anchor_, caret_);
  return {from, to - from};
}

void TextElement::setText(std::string_view text) {
  text_ = EditableText(text::toUtf16(text));
  placeCaret(text_.size());
}

void TextElement::select(Utf16Range range) {
  const Utf16Range selected = text_.clamped(range);
  anchor_ = selected.location;
  caret_ = selected.location + selected.length;
  wantedColumn_.reset();
}

void TextElement::insert(std::string_view text) {
  const auto units = incoming(text);
  const bool isAllDropped = units.empty() && !text.empty();
  if (acceptsEdits() && !isAllDropped) replaceRange(selection(), units);
}

void TextElement::deleteBackward() {
  if (!acceptsEdits()) return;
  const std::int64_t from = hasSelection() ? anchor_ : previousCharacter(text_, caret_);
  erase(from, caret_);
}

void TextElement::deleteForward() {
  if (!acceptsEdits()) return;
  const std::int64_t to = hasSelection() ? anchor_ : nextCharacter(text_, caret_);
  erase(caret_, to);
}

void TextElement::move(Motion motion, Direction direction, bool extending) {
  const bool isVertical = motion == Motion::line || motion == Motion::page;
  if (!isVertical) {
    wantedColumn_.reset();
  } else if (!wantedColumn_) {
    wantedColumn_ = columnAt(text_, caret_);
  }
  const bool collapses = hasSelection() && !extending && motion == Motion::character;
  caret_ = collapses ? selectionEdge(direction) : destination(motion, direction);
  if (!extending) anchor_ = caret_;
}

std::u16string TextElement::incoming(std::string_view text) const {
  auto units = withPlainLineBreaks(text::toUtf16(text));
  if (!hasLines()) std::erase(units, u'\n');
  return units;
}

std::int64_t TextElement::destination(Motion motion, Direction direction) const {
  const bool isForward = direction == Direction::forward;
  switch (motion) {
    case Motion::character:
      return isForward ? nextCharacter(text_, caret_) : previousCharacter(text_, caret_);
    case Motion::lineBoundary:
      return isForward ? lineEnd(text_, caret_) : lineStart(text_, caret_);
    case Motion::line:
    case Motion::page:
      break;
  }
  const int lines = motion == Motion::page ? linesPerPage : 1;
  return positionLinesAway(text_, caret_, isForward ? lines : -lines, wantedColumn_.value_or(0));
}

std::int64_t TextElement::selectionEdge(Direction direction) const {
  return direction == Direction::forward ? std::max(anchor_, caret_) : std::min(anchor_, caret_);
}

void TextElement::erase(std::int64_t from, std::int64_t to) {
  const auto [first, last] = std::minmax(from, to);
  replaceRange({first, last - first}, {});
}

void TextElement::replaceRange(Utf16Range range, std::u16string_view replacement) {
  text_.replace(range, replacement);
  placeCaret(range.location + static_cast<std::int64_t>(replacement.size()));
}

}  // namespace mirvane::simulated
