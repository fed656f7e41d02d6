#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/accessibility.h"

namespace mirvane::simulated {

/// A text that is cheap to edit at one place again and again however long it is: a gap buffer.
/// Moving to another place costs the distance. Positions are UTF-16 units.
class EditableText {
 public:
  explicit EditableText(std::u16string_view text = {});

  [[nodiscard]] std::int64_t size() const;
  /// `position` lies in 0 ..< size.
  [[nodiscard]] char16_t unitAt(std::int64_t position) const;
  /// A copy of `range`, which lies within the text.
  [[nodiscard]] std::u16string slice(Utf16Range range) const;

  /// Puts `replacement` in the place of `range`, which lies within the text.
  void replace(Utf16Range range, std::u16string_view replacement);

  /// The closest range within the text.
  [[nodiscard]] Utf16Range clamped(Utf16Range range) const;

 private:
  [[nodiscard]] std::size_t gapLength() const { return gapEnd_ - gapStart_; }
  void moveGap(std::size_t position);
  void ensureGap(std::size_t length);

  std::u16string storage_;
  std::size_t gapStart_;
  std::size_t gapEnd_;
};

}  // namespace mirvane::simulated
