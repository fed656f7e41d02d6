#include "text/utf16.h"

#include <unicode/utf16.h>

#include <algorithm>

#include "text/scalars.h"

namespace mirvane::text {
namespace {

std::int64_t unitsOf(char32_t scalar) {
  return scalar > 0xFFFF ? 2 : 1;
}

}  // namespace

std::int64_t utf16Length(std::string_view text) {
  std::int64_t length = 0;
  for (std::size_t position = 0; position < text.size();) {
    length += unitsOf(nextScalar(text, position));
  }
  return length;
}

std::int64_t scalarCount(std::u16string_view text) {
  return std::count_if(text.begin(), text.end(), [](char16_t unit) { return !U16_IS_TRAIL(unit); });
}

std::u16string toUtf16(std::string_view text) {
  std::u16string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const auto scalar = static_cast<UChar32>(nextScalar(text, position));
    if (scalar > 0xFFFF) {
      result.push_back(U16_LEAD(scalar));
      result.push_back(U16_TRAIL(scalar));
    } else {
      result.push_back(static_cast<char16_t>(scalar));
    }
  }
  return result;
}

std::string toUtf8(std::u16string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    UChar32 scalar = 0;
    U16_NEXT_OR_FFFD(text.data(), position, text.size(), scalar);
    appendScalar(result, static_cast<char32_t>(scalar));
  }
  return result;
}

std::size_t byteOffset(std::string_view text, std::int64_t utf16Offset) {
  std::size_t position = 0;
  while (position < text.size()) {
    std::size_t next = position;
    utf16Offset -= unitsOf(nextScalar(text, next));
    if (utf16Offset < 0) break;
    position = next;
  }
  return position;
}

}  // namespace mirvane::text
