#include "language/typed_word.h"

#include <algorithm>

namespace mirvane {

TypedWord::TypedWord(std::string_view text) : text_(text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char before = i > 0 ? text[i - 1] : '\0';
    const char after = i + 1 < text.size() ? text[i + 1] : '\0';
    extra_[i] = typing_cost::extraLetter(text[i], before, after) + atStart(i);
    for (const char meant : typing_cost::letters) {
      const Cost cost = typing_cost::substitution(text[i], meant);
      substitutions_[i][typing_cost::indexOf(meant)] = cost == 0 ? 0 : cost + atStart(i);
    }
  }
}

TypedWord::Cost TypedWord::distanceTo(std::string_view meant, Cost limit) const {
  // One row for each meant letter, over the typed ones; three of them are needed at a time.
  std::array<std::array<Cost, WordSet::longestWord + 1>, 3> rows;
  rows[0][0] = 0;
  for (std::size_t i = 0; i < size(); ++i) rows[0][i + 1] = rows[0][i] + extra_[i];
  Cost leastAbove = 0;
  for (std::size_t m = 0; m < meant.size(); ++m) {
    const auto& twoAbove = rows[(m + 2) % 3];
    const auto& above = rows[m % 3];
    auto& row = rows[(m + 1) % 3];
    const char before = m > 0 ? meant[m - 1] : '\0';
    const Cost missing = typing_cost::missingLetter(meant[m], before);
    Cost least = row[0] = above[0] + missing + typing_cost::firstLetter;
    for (std::size_t i = 0; i < size(); ++i) {
      Cost cost = std::min(above[i] + substitution(i, meant[m]), row[i] + extra_[i]);
      cost = std::min(cost, above[i + 1] + missing);
      if (i > 0 && text_[i] == before && text_[i - 1] == meant[m] && text_[i] != meant[m]) {
        cost = std::min(cost, twoAbove[i - 1] + swap(i - 1));
      }
      row[i + 1] = cost;
      least = std::min(least, cost);
    }
    // A swap reaches over one row.
    if (least > limit && leastAbove > limit) return least;
    leastAbove = least;
  }
  return rows[meant.size() % 3][size()];
}

}  // namespace mirvane
