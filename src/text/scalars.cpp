#include "text/scalars.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>

namespace mirvane::text {

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char32_t nextScalar(std::string_view text, std::size_t& position) {
  const auto first = static_cast<unsigned char>(text[position]);
  if (first < 0x80) {
    ++position;
    return first;
  }
  UChar32 scalar = 0;
  U8_NEXT_OR_FFFD(text.data(), position, text.size(), scalar);
  return static_cast<char32_t>(scalar);
}

char32_t firstScalar(std::string_view text) {
  std::size_t position = 0;
  return text.empty() ? 0 : nextScalar(text, position);
}

void appendScalar(std::string& text, char32_t scalar) {
  std::array<char, U8_MAX_LENGTH> bytes{};
  std::size_t length = 0;
  U8_APPEND_UNSAFE(bytes.data(), length, static_cast<UChar32>(scalar));
  text.append(bytes.data(), length);
}

bool isWhitespace(char32_t scalar) {
  if (scalar < 0x80) return scalar == ' ' || (scalar >= '\t' && scalar <= '\r');
  return u_isUWhiteSpace(static_cast<UChar32>(scalar)) != 0;
}

bool isLetter(char32_t scalar) {
  if (scalar < 0x80) return (scalar | 0x20) >= 'a' && (scalar | 0x20) <= 'z';
  return (U_GET_GC_MASK(static_cast<UChar32>(scalar)) & U_GC_L_MASK) != 0;
}

bool isNumber(char32_t scalar) {
  if (scalar < 0x80) return scalar >= '0' && scalar <= '9';
  return (U_GET_GC_MASK(static_cast<UChar32>(scalar)) & U_GC_N_MASK) != 0;
}

}  // namespace mirvane::text
