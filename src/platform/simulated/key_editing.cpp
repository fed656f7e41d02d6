#include "platform/simulated/key_editing.h"

#include <algorithm>
#include <optional>

#include "platform/key_codes.h"
#include "text/scalars.h"

namespace mirvane::simulated {
namespace {

struct CaretKey {
  std::uint16_t keyCode;
  TextElement::Motion motion;
  TextElement::Direction direction;
};

using enum TextElement::Motion;
using enum TextElement::Direction;

constexpr CaretKey caretKeys[] = {
    {keycode::leftArrow, character, backward}, {keycode::rightArrow, character, forward},
    {keycode::upArrow, line, backward},        {keycode::downArrow, line, forward},
    {keycode::home, lineBoundary, backward},   {keycode::end, lineBoundary, forward},
    {keycode::pageUp, page, backward},         {keycode::pageDown, page, forward},
};

bool isLineBreak(char32_t scalar) {
  return scalar == U'\r' || scalar == U'\n';
}

bool isFunctionOrControl(char32_t scalar) {
  return scalar < 0x20 || (scalar >= 0x7F && scalar <= 0x9F) ||
         (scalar >= 0xF700 && scalar <= 0xF8FF);
}

bool isInsertable(std::string_view text) {
  for (std::size_t position = 0; position < text.size();) {
    const char32_t scalar = text::nextScalar(text, position);
    if (isFunctionOrControl(scalar) && !isLineBreak(scalar)) return false;
  }
  return !text.empty();
}

bool moveCaret(const InputEvent& keyDown, TextElement& element) {
  const auto* const key =
      std::find_if(std::begin(caretKeys), std::end(caretKeys),
                   [&](const CaretKey& candidate) { return candidate.keyCode == keyDown.keyCode; });
  if (key == std::end(caretKeys)) return false;
  element.move(key->motion, key->direction, (keyDown.modifierFlags & modifier::shift) != 0);
  return true;
}

void insertTyped(const InputEvent& keyDown, TextElement& element) {
  if ((keyDown.modifierFlags & (modifier::control | modifier::command)) != 0) return;
  switch (keyDown.keyCode) {
    case keycode::escape:
      return;
    case keycode::returnKey:
    case keycode::keypadEnter:
      return element.insert("\n");
    case keycode::tab:
      if (element.hasLines()) element.insert("\t");
      return;
    default:
      if (keyDown.characters && isInsertable(*keyDown.characters)) {
        element.insert(*keyDown.characters);
      }
  }
}

}  // namespace

void applyKey(const InputEvent& keyDown, TextElement& element) {
  if (keyDown.keyCode == keycode::deleteKey) {
    element.deleteBackward();
  } else if (keyDown.keyCode == keycode::forwardDelete) {
    element.deleteForward();
  } else if (!moveCaret(keyDown, element)) {
    insertTyped(keyDown, element);
  }
}

void applySynthesizedKey(const InputEvent& keyDown, TextElement& element) {
  if (keyDown.keyCode == keycode::deleteKey) {
    element.deleteBackward();
  } else if (keyDown.characters) {
    element.insert(*keyDown.characters);
  }
}

}  // namespace mirvane::simulated
