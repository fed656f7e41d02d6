#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

// May be called from any thread at any time: nothing is shared.
namespace mirvane::text {

/// The user-perceived characters (extended grapheme clusters, UAX #29) of a text, in order.
/// The views point into `text`.
[[nodiscard]] std::vector<std::string_view> characters(std::string_view text);

[[nodiscard]] std::size_t characterCount(std::string_view text);

/// True when the text is exactly one character.
[[nodiscard]] bool isSingleCharacter(std::string_view text);

/// The text without its last character; an empty text stays empty.
[[nodiscard]] std::string_view withoutLastCharacter(std::string_view text);

/// The offset (UTF-16 units) at which the last character of a non-empty text starts.
[[nodiscard]] std::size_t lastCharacterStart(std::u16string_view text);

/// The offset (UTF-16 units) behind the first character of a non-empty text.
[[nodiscard]] std::size_t firstCharacterEnd(std::u16string_view text);

/// Equality of two characters: the same bytes, or canonically equivalent.
[[nodiscard]] bool sameCharacter(std::string_view a, std::string_view b);

}  // namespace mirvane::text
