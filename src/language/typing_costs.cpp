#include "language/typing_costs.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace mirvane::typing_cost {

namespace {

using Table = std::array<std::array<Cost, letters.size()>, letters.size()>;

constexpr bool isVowel(char letter) {
  return std::string_view("aeiou").find(letter) != std::string_view::npos;
}

// In quarters of a key; the lower rows of a US keyboard are shifted by one and by three of them.
struct KeyPosition {
  int x = 0;
  int y = 0;
};

constexpr KeyPosition positionOf(char letter) {
  constexpr std::array<std::string_view, 3> rows{"qwertyuiop", "asdfghjkl;'", "zxcvbnm"};
  constexpr std::array<int, 3> shifts{0, 1, 3};
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const std::size_t column = rows[row].find(letter);
    if (column == std::string_view::npos) continue;
    return {static_cast<int>(column) * 4 + shifts[row], static_cast<int>(row) * 4};
  }
  return {};
}

// Squares of quarters of a key: 16 is one key to the side.
constexpr int squaredDistance(char a, char b) {
  const KeyPosition from = positionOf(a);
  const KeyPosition to = positionOf(b);
  return (from.x - to.x) * (from.x - to.x) + (from.y - to.y) * (from.y - to.y);
}

constexpr int neighbour = 25;  // the three keys that touch on each row, up to 1.25 keys away
constexpr int almostNeighbour = 40;

constexpr bool soundAlike(char a, char b) {
  constexpr std::array<std::string_view, 9> pairs{"ck", "cs", "sz", "gj", "iy",
                                                  "fv", "dt", "mn", "kq"};
  return std::ranges::any_of(pairs, [&](std::string_view pair) {
    return (pair[0] == a && pair[1] == b) || (pair[0] == b && pair[1] == a);
  });
}

constexpr Cost costOf(char typed, char meant) {
  if (typed == meant) return 0;
  const int distance = squaredDistance(typed, meant);
  if (distance <= neighbour) return neighbouringKey;
  if (isVowel(typed) && isVowel(meant)) return 82;
  if (soundAlike(typed, meant)) return 86;
  return distance <= almostNeighbour ? 120 : 140;
}

constexpr Table substitutions = [] {
  Table table{};
  for (const char typed : letters) {
    for (const char meant : letters) table[indexOf(typed)][indexOf(meant)] = costOf(typed, meant);
  }
  return table;
}();

constexpr std::array<std::array<bool, letters.size()>, letters.size()> neighbours = [] {
  std::array<std::array<bool, letters.size()>, letters.size()> table{};
  for (const char a : letters) {
    for (const char b : letters) {
      table[indexOf(a)][indexOf(b)] = squaredDistance(a, b) <= neighbour;
    }
  }
  return table;
}();

bool areNeighbours(char a, char b) {
  return b != '\0' && neighbours[indexOf(a)][indexOf(b)];
}

}  // namespace

Cost substitution(char typed, char meant) {
  return substitutions[indexOf(typed)][indexOf(meant)];
}

Cost extraLetter(char typed, char before, char after) {
  if (typed == before) return 30;
  return areNeighbours(typed, before) || areNeighbours(typed, after) ? 82 : 98;
}

}  // namespace mirvane::typing_cost
