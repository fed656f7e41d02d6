#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// May be called from any thread at any time: nothing is shared.
namespace mirvane::text {

/// Length in UTF-16 code units: a scalar outside the basic plane counts two.
[[nodiscard]] std::int64_t utf16Length(std::string_view text);

/// Ill-formed bytes become U+FFFD.
[[nodiscard]] std::u16string toUtf16(std::string_view text);

/// A surrogate without its partner becomes U+FFFD.
[[nodiscard]] std::string toUtf8(std::u16string_view text);

/// How many characters: a surrogate pair counts once.
[[nodiscard]] std::int64_t scalarCount(std::u16string_view text);

/// The byte offset that corresponds to an offset in UTF-16 units, clamped to 0 and the text's end.
/// An offset inside a surrogate pair gives the start of its scalar.
[[nodiscard]] std::size_t byteOffset(std::string_view text, std::int64_t utf16Offset);

}  // namespace mirvane::text
