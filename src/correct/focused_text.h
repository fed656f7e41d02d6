#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/accessibility.h"

namespace mirvane {

/// The focused text element as it was found. Its text is read from the element piece by piece, so
/// that a long document costs no more than a short one.
struct FocusedTextState {
  std::shared_ptr<AccessibilityElement> element;  ///< never null
  std::int64_t textLength = 0;                    ///< UTF-16 units
  Utf16Range selection;
};

/// A word found in the focused element.
struct WordAtCaret {
  std::string word;
  Utf16Range range;
  std::shared_ptr<AccessibilityElement> element;
};

/// The text around a position, whole words on both sides.
struct TextAroundCaret {
  std::string text;
  std::int64_t caret = 0;  ///< UTF-16 units from the start of `text`
};

/// Absent when nothing is focused, or its text or selection cannot be read.
[[nodiscard]] std::optional<FocusedTextState> readFocusedTextState(
    const Accessibility& accessibility);

/// The word being typed: what stands between the last whitespace and the caret.
[[nodiscard]] std::optional<WordAtCaret> currentWordBeforeCaret(const Accessibility& accessibility);

/// The word that the boundary characters before the caret have ended.
[[nodiscard]] std::optional<WordAtCaret> lastCompletedWordBeforeCaret(
    const Accessibility& accessibility);

/// So much of the text that at least `words` context words on each side of the caret are whole; the
/// element's whole text when it has fewer. The caret is clamped to the text.
[[nodiscard]] std::optional<TextAroundCaret> readTextAroundCaret(const FocusedTextState& state,
                                                                 std::size_t words);

}  // namespace mirvane
