#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "language/typing_costs.h"
#include "language/word_set.h"

namespace mirvane {

/// A lower-case word of letters and apostrophes as it was typed, with what each of its letters
/// costs to explain, worked out once for all the words it is compared with.
class TypedWord {
 public:
  using Cost = typing_cost::Cost;

  /// Of at most WordSet::longestWord characters; the text must outlive this object.
  explicit TypedWord(std::string_view text);

  [[nodiscard]] std::string_view text() const { return text_; }
  [[nodiscard]] std::size_t size() const { return text_.size(); }

  /// The letter at a position was not meant.
  [[nodiscard]] Cost extra(std::size_t position) const { return extra_[position]; }

  /// The letter at a position stands for `meant`; 0 when it is that letter.
  [[nodiscard]] Cost substitution(std::size_t position, char meant) const {
    return substitutions_[position][typing_cost::indexOf(meant)];
  }

  /// `meant` was left out before a position, behind the meant letter `before`.
  [[nodiscard]] static Cost missing(std::size_t position, char meant, char before) {
    return typing_cost::missingLetter(meant, before) + atStart(position);
  }

  /// The letters at a position and behind it were swapped.
  [[nodiscard]] static Cost swap(std::size_t position) {
    return typing_cost::swap + atStart(position);
  }

  /// The cheapest slips that turn `meant` into this word: the edit distance with swaps of
  /// neighbours (Damerau 1964; Wagner and Fischer 1974) under these costs. Some number above
  /// `limit` when it is more than that.
  [[nodiscard]] Cost distanceTo(std::string_view meant, Cost limit) const;

 private:
  static Cost atStart(std::size_t position) { return position == 0 ? typing_cost::firstLetter : 0; }

  std::string_view text_;
  std::array<Cost, WordSet::longestWord> extra_;
  std::array<std::array<Cost, typing_cost::letterCount>, WordSet::longestWord> substitutions_;
};

}  // namespace mirvane
