#include "language/typing_costs.h"

#include <array>
#include <cmath>
#include <string_view>

namespace mirvane::typing_cost {

namespace {

constexpr std::size_t letterCount = 27;
using Table = std::array<std::array<Cost, letterCount>, letterCount>;

std::size_t indexOf(char letter) {
  return letter == '\'' ? 26 : static_cast<std::size_t>(letter - 'a');
}

bool isVowel(char letter) {
  return std::string_view("aeiou").find(letter) != std::string_view::npos;
}

struct KeyPosition {
  double x;
  double y;
};

// In key widths; the rows of a US keyboard are shifted by a quarter and a half of a key.
KeyPosition positionOf(char letter) {
  constexpr std::array<std::string_view, 3> rows{"qwertyuiop", "asdfghjkl;'", "zxcvbnm"};
  constexpr std::array<double, 3> shifts{0.0, 0.25, 0.75};
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const std::size_t column = rows[row].find(letter);
    if (column == std::string_view::npos) continue;
    return {static_cast<double>(column) + shifts[row], static_cast<double>(row)};
  }
  return {0, 0};
}

double keyDistance(char a, char b) {
  const KeyPosition from = positionOf(a);
  const KeyPosition to = positionOf(b);
  return std::hypot(from.x - to.x, from.y - to.y);
}

bool soundAlike(char a, char b) {
  constexpr std::array<std::string_view, 9> pairs{"ck", "cs", "sz", "gj", "iy",
                                                  "fv", "dt", "mn", "kq"};
  for (const std::string_view pair : pairs) {
    if ((pair[0] == a && pair[1] == b) || (pair[0] == b && pair[1] == a)) return true;
  }
  return false;
}

Cost computeSubstitution(char typed, char meant) {
  const double distance = keyDistance(typed, meant);
  Cost cost = distance < 1.01 ? 60 : distance < 1.3 ? 70 : distance < 1.6 ? 105 : 130;
  if (isVowel(typed) && isVowel(meant)) cost = std::min(cost, 75);
  if (soundAlike(typed, meant)) cost = std::min(cost, 85);
  return cost;
}

Table substitutionTable() {
  constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz'";
  Table table{};
  for (const char typed : letters) {
    for (const char meant : letters) {
      table[indexOf(typed)][indexOf(meant)] =
          typed == meant ? 0 : computeSubstitution(typed, meant);
    }
  }
  return table;
}

bool areNeighbours(char a, char b) {
  return b != '\0' && keyDistance(a, b) < 1.3;
}

}  // namespace

Cost substitution(char typed, char meant) {
  static const Table table = substitutionTable();
  return table[indexOf(typed)][indexOf(meant)];
}

Cost extraLetter(char typed, char before, char after) {
  if (typed == before) return 30;
  if (areNeighbours(typed, before) || areNeighbours(typed, after)) return 70;
  return 95;
}

Cost missingLetter(char meant, char before) {
  if (meant == before) return 55;
  if (meant == '\'') return 40;
  return isVowel(meant) ? 80 : 90;
}

Cost swap() {
  return 60;
}

Cost firstLetter() {
  return 15;
}

}  // namespace mirvane::typing_cost
