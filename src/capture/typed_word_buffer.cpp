#include "capture/typed_word_buffer.h"

#include "platform/key_codes.h"
#include "text/canonical.h"
#include "text/characters.h"
#include "text/scalars.h"
#include "text/word_boundaries.h"

namespace mirvane {
namespace {

bool isChord(const KeyEvent& event) {
  return (event.modifierFlags & (modifier::control | modifier::option | modifier::command)) != 0;
}

/// Keys that move the caret somewhere else.
bool isNavigationKey(std::uint16_t keyCode) {
  switch (keyCode) {
    case keycode::home:
    case keycode::pageUp:
    case keycode::end:
    case keycode::pageDown:
    case keycode::leftArrow:
    case keycode::rightArrow:
    case keycode::downArrow:
    case keycode::upArrow:
      return true;
    default:
      return false;
  }
}

}  // namespace

bool CompletedTypedWord::operator==(const CompletedTypedWord& other) const {
  return text::canonicallyEqual(word, other.word) &&
         text::canonicallyEqual(boundaryCharacter, other.boundaryCharacter);
}

void TypedWordBuffer::handle(const KeyEvent& event) {
  const bool leavesTheWord =
      isChord(event) || isNavigationKey(event.keyCode) || event.keyCode == keycode::escape;
  if (leavesTheWord) return reset();
  if (event.keyCode == keycode::deleteKey) return deleteBackward();
  if (event.inputText.empty()) return;
  if (isWordCharacter(event.inputText)) {
    currentWord_ += event.inputText;
  } else if (text::isBoundaryKeyText(event.inputText)) {
    completeWord(event.inputText);
  } else {
    reset();
  }
}

void TypedWordBuffer::deleteBackward() {
  if (!currentWord_.empty()) {
    currentWord_.resize(text::withoutLastCharacter(currentWord_).size());
  } else {
    lastCompletedWord_.reset();
  }
}

void TypedWordBuffer::completeWord(std::string_view boundary) {
  lastCompletedWord_.reset();
  if (currentWord_.empty()) return;
  lastCompletedWord_ = {std::move(currentWord_), std::string(boundary)};
  currentWord_.clear();
}

void TypedWordBuffer::reset() {
  currentWord_.clear();
  lastCompletedWord_.reset();
}

bool TypedWordBuffer::isWordCharacter(std::string_view text) {
  const char32_t scalar = text::firstScalar(text);
  const bool extendsWord =
      scalar < 0x80 && (text::isLetter(scalar) || text::isNumber(scalar) || scalar == '\'');
  return extendsWord && text::isSingleCharacter(text);
}

void TypedWordBuffer::replaceCompletedWord(CompletedTypedWord word) {
  currentWord_.clear();
  lastCompletedWord_ = std::move(word);
}

}  // namespace mirvane
