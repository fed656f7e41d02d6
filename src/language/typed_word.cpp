#include "language/typed_word.h"

#include <algorithm>
#include <bit>

namespace mirvane {

namespace {

std::int16_t narrow(typing_cost::Cost cost) {
  return static_cast<std::int16_t>(cost);
}

}  // namespace

TypedWord::TypedWord(std::string_view text, Reading reading)
    : size_(text.size()),
      startCell_(reading == Reading::forward ? 0 : size_),
      startSwap_(reading == Reading::forward ? 0 : size_ - 2) {
  for (std::size_t i = 0; i < size_; ++i) {
    const std::size_t place = reading == Reading::forward ? i : size_ - 1 - i;
    const Cost atStart = i == 0 ? typing_cost::firstLetter : 0;
    const char before = i > 0 ? text[i - 1] : '\0';
    const char after = i + 1 < size_ ? text[i + 1] : '\0';
    text_[place] = text[i];
    extra_[place] = narrow(typing_cost::extraLetter(text[i], before, after) + atStart);
    places_[typing_cost::indexOf(text[i])] |= std::uint64_t{1} << place;
    for (const char meant : typing_cost::letters) {
      const Cost cost = typing_cost::substitution(text[i], meant);
      substitutions_[typing_cost::indexOf(meant)][place] = narrow(cost == 0 ? 0 : cost + atStart);
    }
  }
}

void TypedWord::fillFirstRow(Row& row) const {
  row[0] = 0;
  for (std::size_t i = 0; i < size_; ++i) row[i + 1] = narrow(row[i] + extra_[i]);
}

void TypedWord::fillRow(Row& row, const Row& above, const Row& twoAbove, char meant,
                        char before) const {
  const ByPlace& substitutions = substitutions_[typing_cost::indexOf(meant)];
  const std::int16_t missing = narrow(typing_cost::missingLetter(meant, before));
  for (std::size_t block = 0; block < size_; block += blockSize) {
    // Apart from the rows, so that the compiler can work on all cells at once.
    std::array<std::int16_t, blockSize> cells;
    for (std::size_t k = 0; k < blockSize; ++k) {
      const std::size_t i = block + k;
      cells[k] = std::min(narrow(above[i] + substitutions[i]), narrow(above[i + 1] + missing));
    }
    std::ranges::copy(cells, row.begin() + block + 1);
  }
  const Cost missingAtStart = missing + (meant == before ? 0 : typing_cost::firstLetter);
  row[0] = narrow(above[0] + missing);
  row[startCell_] = narrow(above[startCell_] + missingAtStart);
  if (startCell_ > 0) {
    row[size_] = std::min(row[size_], narrow(above[size_ - 1] + substitutions[size_ - 1]));
  }
  addSwaps(row, twoAbove, meant, before);
  std::int16_t last = row[0];
  for (std::size_t i = 0; i < size_; ++i) {
    row[i + 1] = last = std::min(row[i + 1], narrow(last + extra_[i]));
  }
}

void TypedWord::addSwaps(Row& row, const Row& twoAbove, char meant, char before) const {
  if (meant == before || before == '\0') return;
  // Where `before` was typed right behind `meant`.
  for (auto places = placesOf(meant) & placesOf(before) >> 1; places != 0; places &= places - 1) {
    const auto i = static_cast<std::size_t>(std::countr_zero(places));
    const Cost swap = typing_cost::swap + (i == startSwap_ ? typing_cost::firstLetter : 0);
    row[i + 2] = std::min(row[i + 2], narrow(twoAbove[i] + swap));
  }
}

}  // namespace mirvane
