#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/accessibility.h"

namespace mirvane {

/// What an application counts its text in.
enum class TextUnit { utf16, codePoint };

/// The part of an application's text around the caret, and the way from the application's offsets
/// to UTF-16 ones and back. Outside of the part both count alike: what lies there has no influence
/// on the part's own words, and both ways agree with each other.
class TextWindow {
 public:
  /// `text` stands at `start` of a text of `length`, both in the application's unit.
  TextWindow(TextUnit unit, std::int64_t length, std::int64_t start, std::u16string text);

  /// Where the window begins, the same in both units.
  [[nodiscard]] std::int64_t start() const { return start_; }

  /// Of the application's whole text, UTF-16 units.
  [[nodiscard]] std::int64_t utf16Length() const;

  [[nodiscard]] std::int64_t toUtf16(std::int64_t applicationOffset) const;
  [[nodiscard]] std::int64_t toApplication(std::int64_t utf16Offset) const;

  /// Absent when the range is not wholly within the window.
  [[nodiscard]] std::optional<std::u16string> text(Utf16Range range) const;

 private:
  TextUnit unit_;
  std::int64_t length_;
  std::int64_t start_;
  std::u16string text_;
  std::int64_t unitsInWindow_;  ///< the application's
};

}  // namespace mirvane
