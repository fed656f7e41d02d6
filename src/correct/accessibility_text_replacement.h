#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/accessibility.h"
#include "platform/key_event_poster.h"

namespace mirvane {

/// Where a word sits in a text element.
struct AXReplacementTarget {
  std::shared_ptr<AccessibilityElement> element;
  Utf16Range range;
  /// Where the caret goes after a replacement; right after the inserted text when absent.
  std::optional<std::int64_t> caretAfter;

  bool operator==(const AXReplacementTarget&) const = default;
};

/// Which path carried a replacement out; `failed` when there was no element and keys could not be
/// posted. A field that ignores accessibility writes still counts as `accessibility`.
enum class ReplacementResult { accessibility, keyEvents, failed };

/// Replaces words in whatever application has the focus: in place where the element is known, else
/// by typing Backspaces and the new text. It decides nothing.
class AccessibilityTextReplacement {
 public:
  explicit AccessibilityTextReplacement(KeyEventPoster& poster) : poster_(poster) {}

  /// Replaces a word that a boundary character has ended; that character stays or is typed again.
  ReplacementResult replaceFinishedWord(std::string_view typedWord, std::string_view boundary,
                                        std::string_view replacement,
                                        const std::optional<AXReplacementTarget>& target);

  /// Replaces the word that is being typed.
  ReplacementResult replaceCurrentWord(std::string_view typedWord, std::string_view replacement,
                                       const std::optional<AXReplacementTarget>& target);

  /// One cycle step. With a target the caret ends behind the element's whole text.
  void replaceCycledText(std::string_view currentText, std::string_view boundary,
                         std::string_view newText,
                         const std::optional<AXReplacementTarget>& target);

  static void moveCaretToEnd(AccessibilityElement& element);

  /// Types a number of Backspaces and then the whole text as one key. False when there is nothing
  /// to type, the count is negative, a password is being entered, no keys can be posted, or the
  /// field is seen to hold something else than `textBeforeCaret`, which is what they delete.
  bool sendKeystrokes(std::int64_t deleteCount, std::string_view text,
                      std::string_view textBeforeCaret = {});

 private:
  KeyEventPoster& poster_;
};

}  // namespace mirvane
