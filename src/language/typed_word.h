#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "language/typing_costs.h"
#include "language/word_set.h"

namespace mirvane {

/// From which end words are compared letter by letter.
enum class Reading { forward, backward };

/// A lower-case word of letters and apostrophes as it was typed, with what each of its letters
/// costs to explain, worked out once for all the words it is compared with. Read backward, places
/// count from the end of the word; every word is as far away as read forward, unless a swap meets a
/// doubled letter.
class TypedWord {
 public:
  using Cost = typing_cost::Cost;

  /// What it costs at least to explain the first 0, 1, 2, ... typed letters by the beginning of
  /// another word: a row of the table that edit distances are worked out with (Wagner and Fischer
  /// 1974), with swaps of neighbours (Damerau 1964). Rounded up to whole blocks of letters.
  using Row = std::array<std::int16_t, WordSet::longestWord + 9>;

  /// Of at most WordSet::longestWord characters.
  TypedWord(std::string_view text, Reading reading);

  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] char letter(std::size_t place) const { return text_[place]; }

  /// The letter at a place was not meant.
  [[nodiscard]] Cost extra(std::size_t place) const { return extra_[place]; }

  /// The places of a letter, as bits.
  [[nodiscard]] std::uint64_t placesOf(char letter) const {
    return places_[typing_cost::indexOf(letter)];
  }

  /// The row of a word without letters.
  void fillFirstRow(Row& row) const;

  /// The row of a word of at least one letter, from the rows of the word without its last letter
  /// and without its last two; `before` is the letter before its last, '\0' when there is none.
  void fillRow(Row& row, const Row& above, const Row& twoAbove, char meant, char before) const;

 private:
  void addSwaps(Row& row, const Row& twoAbove, char meant, char before) const;

  static constexpr std::size_t blockSize = 8;  // 16 bytes, which most machines work on at once
  using ByPlace = std::array<std::int16_t, WordSet::longestWord + 1>;

  std::size_t size_;
  std::size_t startCell_;  // of a row, where nothing of the word's start is explained yet
  std::size_t startSwap_;  // the first place of a swap of the first two letters
  std::array<char, WordSet::longestWord> text_;
  ByPlace extra_{};
  std::array<ByPlace, typing_cost::letterCount> substitutions_{};
  std::array<std::uint64_t, typing_cost::letterCount> places_{};
};

}  // namespace mirvane
