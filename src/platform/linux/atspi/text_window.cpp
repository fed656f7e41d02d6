#include "platform/linux/atspi/text_window.h"

#include <algorithm>
#include <utility>

#include "text/utf16.h"

namespace mirvane {
namespace {

bool isTrailSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

TextWindow::TextWindow(TextUnit unit, std::int64_t length, std::int64_t start, std::u16string text)
    : unit_(unit),
      length_(length),
      start_(start),
      text_(std::move(text)),
      unitsInWindow_(unit == TextUnit::utf16 ? static_cast<std::int64_t>(text_.size())
                                             : text::scalarCount(text_)) {}

std::int64_t TextWindow::utf16Length() const {
  return toUtf16(length_);
}

std::int64_t TextWindow::toUtf16(std::int64_t applicationOffset) const {
  const auto offset = applicationOffset - start_;
  if (unit_ == TextUnit::utf16 || offset <= 0) return applicationOffset;
  const auto size = static_cast<std::int64_t>(text_.size());
  if (offset >= unitsInWindow_) return start_ + size + (offset - unitsInWindow_);
  std::int64_t position = 0;
  for (std::int64_t count = 0; position < size; ++position) {
    if (!isTrailSurrogate(text_[static_cast<std::size_t>(position)]) && count++ == offset) break;
  }
  return start_ + position;
}

std::int64_t TextWindow::toApplication(std::int64_t utf16Offset) const {
  const auto offset = utf16Offset - start_;
  if (unit_ == TextUnit::utf16 || offset <= 0) return utf16Offset;
  const auto size = static_cast<std::int64_t>(text_.size());
  if (offset >= size) return start_ + unitsInWindow_ + (offset - size);
  return start_ +
         text::scalarCount(std::u16string_view(text_).substr(0, static_cast<std::size_t>(offset)));
}

std::optional<std::u16string> TextWindow::text(Utf16Range range) const {
  const auto offset = range.location - start_;
  const auto size = static_cast<std::int64_t>(text_.size());
  if (offset < 0 || range.length < 0 || offset + range.length > size) return std::nullopt;
  return text_.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(range.length));
}

}  // namespace mirvane
