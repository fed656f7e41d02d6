#include "suggest/character_difference.h"

#include <algorithm>

#include "text/characters.h"

namespace mirvane {
namespace {

bool sameCharacters(Characters a, Characters b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), text::sameCharacter);
}

}  // namespace

std::optional<std::size_t> onlyDifference(Characters a, Characters b) {
  if (a.size() != b.size()) return std::nullopt;
  const std::size_t first = commonPrefixLength(a, b);
  if (first == a.size()) return std::nullopt;
  if (!sameCharacters(a.subspan(first + 1), b.subspan(first + 1))) return std::nullopt;
  return first;
}

bool equalsWithout(Characters longer, std::size_t position, Characters shorter) {
  return longer.size() == shorter.size() + 1 &&
         sameCharacters(longer.first(position), shorter.first(position)) &&
         sameCharacters(longer.subspan(position + 1), shorter.subspan(position));
}

std::size_t commonPrefixLength(Characters a, Characters b) {
  const std::size_t shorter = std::min(a.size(), b.size());
  std::size_t length = 0;
  while (length < shorter && text::sameCharacter(a[length], b[length])) ++length;
  return length;
}

}  // namespace mirvane
