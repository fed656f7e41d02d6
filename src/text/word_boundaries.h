#pragma once

#include <string_view>

// May be called from any thread at any time: nothing is shared.
namespace mirvane::text {

/// A fixed set of Unicode scalars.
class WordBoundaryCharacters {
 public:
  [[nodiscard]] bool contains(char32_t scalar) const;
};

/// The characters that end a word: every whitespace and newline character and
/// . , ! ? ; : " ' ( ) [ ] { } < >
inline constexpr WordBoundaryCharacters wordBoundaryCharacters{};

/// True when a key's text is exactly one character whose first scalar ends a word.
[[nodiscard]] bool isBoundaryKeyText(std::string_view keyText);

}  // namespace mirvane::text
