#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// May be called from any thread at any time: nothing is shared.
namespace mirvane::text {

/// U+FFFD, what an ill-formed piece of UTF-8 or UTF-16 decodes to.
inline constexpr char32_t replacementScalar = 0xFFFD;

/// True when every byte is below 0x80. Most words are: callers take a path without ICU then.
[[nodiscard]] bool isAscii(std::string_view text);

/// The Unicode scalar that starts at `position` (a byte offset below the text's size); `position`
/// is moved behind it. Ill-formed bytes give `replacementScalar`.
char32_t nextScalar(std::string_view text, std::size_t& position);

/// The first scalar of a text, 0 for an empty one.
[[nodiscard]] char32_t firstScalar(std::string_view text);

void appendScalar(std::string& text, char32_t scalar);

/// The White_Space property: whitespace and newlines.
[[nodiscard]] bool isWhitespace(char32_t scalar);

/// General category L*.
[[nodiscard]] bool isLetter(char32_t scalar);

/// General category N*.
[[nodiscard]] bool isNumber(char32_t scalar);

}  // namespace mirvane::text
