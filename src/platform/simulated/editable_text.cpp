#include "platform/simulated/editable_text.h"

#include <algorithm>

namespace mirvane::simulated {

EditableText::EditableText(std::u16string_view text)
    : storage_(text), gapStart_(text.size()), gapEnd_(text.size()) {}

std::int64_t EditableText::size() const {
  return static_cast<std::int64_t>(storage_.size() - gapLength());
}

char16_t EditableText::unitAt(std::int64_t position) const {
  const auto index = static_cast<std::size_t>(position);
  return storage_[index < gapStart_ ? index : index + gapLength()];
}

std::u16string EditableText::slice(Utf16Range range) const {
  const auto from = static_cast<std::size_t>(range.location);
  const auto to = from + static_cast<std::size_t>(range.length);
  std::u16string result;
  result.reserve(to - from);
  if (from < gapStart_) result.append(storage_, from, std::min(to, gapStart_) - from);
  const auto rest = std::max(from, gapStart_);
  if (to > rest) result.append(storage_, rest + gapLength(), to - rest);
  return result;
}

void EditableText::replace(Utf16Range range, std::u16string_view replacement) {
  moveGap(static_cast<std::size_t>(range.location));
  gapEnd_ += static_cast<std::size_t>(range.length);
  ensureGap(replacement.size());
  std::copy(replacement.begin(), replacement.end(), storage_.data() + gapStart_);
  gapStart_ += replacement.size();
}

Utf16Range EditableText::clamped(Utf16Range range) const {
  const std::int64_t location = std::clamp<std::int64_t>(range.location, 0, size());
  return {location, std::clamp<std::int64_t>(range.length, 0, size() - location)};
}

void EditableText::moveGap(std::size_t position) {
  char16_t* const units = storage_.data();
  if (position < gapStart_) {
    std::move_backward(units + position, units + gapStart_, units + gapEnd_);
  } else {
    std::move(units + gapEnd_, units + position + gapLength(), units + gapStart_);
  }
  gapEnd_ = position + gapLength();
  gapStart_ = position;
}

void EditableText::ensureGap(std::size_t length) {
  if (gapLength() >= length) return;
  constexpr std::size_t smallestGrowth = 64;
  const std::size_t growth = length + std::max(smallestGrowth, storage_.size() / 2);
  storage_.insert(gapEnd_, growth, u'\0');
  gapEnd_ += growth;
}

}  // namespace mirvane::simulated
