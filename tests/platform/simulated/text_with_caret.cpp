#include "tests/platform/simulated/text_with_caret.h"

#include <algorithm>

#include "text/utf16.h"

namespace mirvane::simulated {

TextElement elementShowing(std::string_view marked, ElementKind kind) {
  std::u16string text = text::toUtf16(marked);
  const std::size_t anchorMark = text.find(u'^');
  if (anchorMark != std::u16string::npos) text.erase(anchorMark, 1);
  const std::size_t caret = text.find(u'|');
  text.erase(caret, 1);
  const std::size_t anchor = std::min(anchorMark, caret);
  TextElement element(kind, text::toUtf8(text));
  element.select({static_cast<std::int64_t>(anchor), static_cast<std::int64_t>(caret - anchor)});
  return element;
}

std::string shownBy(const TextElement& element) {
  const auto [from, length] = element.selection();
  std::string shown = text::toUtf8(element.slice({0, from}));
  if (length > 0) shown += '^' + text::toUtf8(element.slice({from, length}));
  return shown + '|' + text::toUtf8(element.slice({from + length, element.length()}));
}

}  // namespace mirvane::simulated
