#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace mirvane {

/// Characters as numbers: canonically equivalent characters have the same.
using Symbols = std::vector<std::uint32_t>;

[[nodiscard]] Symbols symbolsOf(const std::vector<std::string_view>& characters);
[[nodiscard]] Symbols symbolsOf(std::string_view text);

/// The minimum string distance: the least number of inserted, omitted and substituted characters
/// that turns one text into the other (Levenshtein 1966; Soukoreff & MacKenzie 2001).
/// This and the alignments throw a `std::runtime_error` for texts that are too long to compare.
[[nodiscard]] std::size_t minimumStringDistance(const Symbols& a, const Symbols& b);
[[nodiscard]] std::size_t minimumStringDistance(std::string_view a, std::string_view b);

/// Positions of a character that was meant and the one typed for it. Without `typed` it was
/// omitted, without `meant` inserted.
struct AlignedPair {
  std::optional<std::size_t> meant = {};
  std::optional<std::size_t> typed = {};

  bool operator==(const AlignedPair&) const = default;
};

/// One alignment of as few slips as the minimum string distance, in the order of the texts. Among
/// several, the second of two equal characters typed is the one too many, and a substitution goes
/// before an insertion and an omission.
[[nodiscard]] std::vector<AlignedPair> align(const Symbols& meant, const Symbols& typed);

/// The same for typing that broke off: with that beginning of `meant` that fits best, and among
/// several the one whose length comes next to that of `typed`.
[[nodiscard]] std::vector<AlignedPair> alignWithBeginning(const Symbols& meant,
                                                          const Symbols& typed);

}  // namespace mirvane
