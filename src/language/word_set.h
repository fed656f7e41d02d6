#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "language/payload_reader.h"

namespace mirvane {

/// A set of words laid out for one question: is this exact text in it? A hash table with linear
/// probing; eleven bits of the hash in each slot turn nearly every unknown word away without a
/// look at the stored text. Views memory that it does not own.
class WordSet {
 public:
  static constexpr std::size_t longestWord = 63;

  /// The empty set.
  WordSet() = default;

  /// Absent when the parts are not those of a word set.
  static std::optional<WordSet> read(PayloadReader& payload);

  [[nodiscard]] bool contains(std::string_view word) const { return slotOf(word).has_value(); }

  /// A number below slotCount() that no other word has.
  [[nodiscard]] std::optional<std::size_t> slotOf(std::string_view word) const;
  [[nodiscard]] std::size_t slotCount() const { return slots_.size(); }

 private:
  [[nodiscard]] bool holds(std::uint32_t slot, std::uint64_t hash, std::string_view word) const;

  std::span<const std::uint32_t> slots_;
  std::span<const char> text_;
};

/// A word set laid out; `slots` and `text` are what WordSet::read expects.
struct WordSetParts {
  std::vector<std::uint32_t> slots;
  std::string text;
  std::vector<std::size_t> slotOfWord;  // in the order of the words
};

/// Lays out distinct words of 1 to WordSet::longestWord bytes; throws std::length_error when they
/// are too many or too long for the layout.
WordSetParts layOutWordSet(std::span<const std::string> words);

}  // namespace mirvane
