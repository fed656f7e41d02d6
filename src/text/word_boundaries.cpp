#include "text/word_boundaries.h"

#include "text/characters.h"
#include "text/scalars.h"

namespace mirvane::text {

bool WordBoundaryCharacters::contains(char32_t scalar) const {
  constexpr std::u32string_view punctuation = U".,!?;:\"'()[]{}<>";
  return punctuation.find(scalar) != std::u32string_view::npos || isWhitespace(scalar);
}

bool isBoundaryKeyText(std::string_view keyText) {
  return wordBoundaryCharacters.contains(firstScalar(keyText)) && isSingleCharacter(keyText);
}

}  // namespace mirvane::text
