#include "platform/linux/atspi/shown_text.h"

#include <string_view>

#include "platform/linux/field_text.h"
#include "text/scalars.h"
#include "text/word_boundaries.h"

namespace mirvane {
namespace {

/// From the whitespace before it on, without what ends words behind it.
std::u16string_view lastWord(std::u16string_view text) {
  while (!text.empty() && text::wordBoundaryCharacters.contains(text.back())) {
    text.remove_suffix(1);
  }
  auto start = text.size();
  while (start > 0 && !text::isWhitespace(text[start - 1])) --start;
  return text.substr(start);
}

}  // namespace

void ShownText::add(const std::optional<std::string>& typed) {
  const bool isInsertion = typed && *typed != "\x7F";
  if (!isInsertion) return forget();
  if (beforeCaret_) *beforeCaret_ += asInFields(*typed);
}

bool ShownText::endsInWordOf(const FieldContent& content) const {
  const auto now = content.beforeCaret();
  return now && beforeCaret_ && lastWord(*now) == lastWord(*beforeCaret_);
}

}  // namespace mirvane
