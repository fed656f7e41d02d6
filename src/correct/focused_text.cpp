#include "correct/focused_text.h"

#include <algorithm>
#include <utility>

#include "correct/text_before.h"
#include "suggest/context_signals.h"
#include "text/characters.h"
#include "text/scalars.h"
#include "text/utf16.h"
#include "text/word_boundaries.h"

namespace mirvane {
namespace {

/// Both sets hold nothing outside the basic plane, so a UTF-16 unit decides for its scalar.
bool isWhitespaceUnit(char16_t unit) {
  return text::isWhitespace(unit);
}
bool isBoundaryUnit(char16_t unit) {
  return text::wordBoundaryCharacters.contains(unit);
}

/// The position behind the last unit for which `matches` holds before `end`, or 0 without one.
/// `before` has been read up to some position not before `end`.
template <typename Matches>
std::int64_t searchBackwards(TextBefore& before, std::int64_t end, Matches matches) {
  while (true) {
    auto unit = end - before.start();
    while (unit > 0 && !matches(before.text()[static_cast<std::size_t>(unit - 1)])) --unit;
    if (unit > 0) return before.start() + unit;
    end = before.start();
    if (!before.readMore()) return before.start();
  }
}

/// The start of the character that ends at `end`, which is over 0.
std::int64_t characterStart(TextBefore& before, std::int64_t end) {
  while (true) {
    const auto text = before.text().substr(0, static_cast<std::size_t>(end - before.start()));
    const std::size_t start = text.empty() ? 0 : text::lastCharacterStart(text);
    // A character at the edge of what was read may have begun further to the left.
    if (start > 0 || !before.readMore()) return before.start() + static_cast<std::int64_t>(start);
  }
}

/// Where the run of boundary characters that ends at the caret begins; the caret without one.
std::int64_t boundaryRunStart(TextBefore& before, std::int64_t caret) {
  auto end = caret;
  while (end > 0) {
    const auto start = characterStart(before, end);
    if (start == end) break;
    if (!isBoundaryUnit(before.text()[static_cast<std::size_t>(start - before.start())])) break;
    end = start;
  }
  return end;
}

std::optional<std::int64_t> caretWithText(const FocusedTextState& state) {
  const auto caret = state.selection.location;
  if (caret < 1 || caret > state.textLength) return std::nullopt;
  return caret;
}

std::optional<WordAtCaret> wordBetween(const FocusedTextState& state, const TextBefore& before,
                                       std::int64_t start, std::int64_t end) {
  if (end - start < 1 || before.hasFailed()) return std::nullopt;
  const auto word = before.text().substr(static_cast<std::size_t>(start - before.start()),
                                         static_cast<std::size_t>(end - start));
  return WordAtCaret{text::toUtf8(word), {start, end - start}, state.element};
}

/// One word more than asked for makes sure that the words asked for are not cut.
bool holdsWords(std::u16string_view text, std::size_t words) {
  return contextWords(text::toUtf8(text)).size() > words;
}

/// The text from the caret on, with at least so many whole words; absent when it cannot be read.
std::optional<std::u16string> readTextAfter(const FocusedTextState& state, std::int64_t caret,
                                            std::size_t words) {
  constexpr std::int64_t firstPiece = 64;
  const auto rest = state.textLength - caret;
  for (auto length = std::min(firstPiece, rest);; length = std::min(length * 2, rest)) {
    if (length == 0) return std::u16string();
    auto text = state.element->text({caret, length});
    if (!text || length == rest || holdsWords(*text, words)) return text;
  }
}

}  // namespace

std::optional<FocusedTextState> readFocusedTextState(const Accessibility& accessibility) {
  auto element = accessibility.focusedElement();
  if (!element) return std::nullopt;
  const auto length = element->textLength();
  if (!length) return std::nullopt;
  const auto selection = element->selectedTextRange();
  if (!selection) return std::nullopt;
  return FocusedTextState{std::move(element), *length, *selection};
}

std::optional<WordAtCaret> currentWordBeforeCaret(const Accessibility& accessibility) {
  const auto state = readFocusedTextState(accessibility);
  const auto caret = state ? caretWithText(*state) : std::nullopt;
  if (!caret) return std::nullopt;
  TextBefore before(*state->element, *caret);
  const auto start = searchBackwards(before, *caret, isWhitespaceUnit);
  return wordBetween(*state, before, start, *caret);
}

std::optional<WordAtCaret> lastCompletedWordBeforeCaret(const Accessibility& accessibility) {
  const auto state = readFocusedTextState(accessibility);
  const auto caret = state ? caretWithText(*state) : std::nullopt;
  if (!caret) return std::nullopt;
  TextBefore before(*state->element, *caret);
  const auto end = boundaryRunStart(before, *caret);
  if (end == *caret || end == 0) return std::nullopt;
  const auto start = searchBackwards(before, end, isBoundaryUnit);
  return wordBetween(*state, before, start, end);
}

std::optional<TextAroundCaret> readTextAroundCaret(const FocusedTextState& state,
                                                   std::size_t words) {
  const auto caret = std::clamp<std::int64_t>(state.selection.location, 0, state.textLength);
  TextBefore before(*state.element, caret);
  while (!holdsWords(before.text(), words) && before.readMore()) {
  }
  const auto after = readTextAfter(state, caret, words);
  if (!after || before.hasFailed()) return std::nullopt;
  std::u16string text(before.text());
  text += *after;
  return TextAroundCaret{text::toUtf8(text), static_cast<std::int64_t>(before.text().size())};
}

}  // namespace mirvane
