#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "language/payload_reader.h"
#include "language/word_trie.h"

namespace mirvane {

/// Words in groups of equal length, the most frequent first, each with the set of its letters: laid
/// out for looking through all of them. Views memory that it does not own.
class RankedWords {
 public:
  /// The words of one length.
  struct Group {
    std::size_t length;
    std::span<const WordTrie::LetterSet> letters;
    std::span<const WordTrie::Frequency> frequencies;
    std::span<const char> text;

    [[nodiscard]] std::size_t size() const { return letters.size(); }
    [[nodiscard]] std::string_view word(std::size_t i) const {
      return {text.data() + i * length, length};
    }
  };

  /// Without words.
  RankedWords() = default;

  /// Absent when the parts are not those of ranked words.
  static std::optional<RankedWords> read(PayloadReader& payload);

  /// By ascending length; no group is empty.
  [[nodiscard]] std::span<const Group> groups() const { return groups_; }

 private:
  std::vector<Group> groups_;
};

/// The parts of ranked words, as RankedWords::read expects them.
struct RankedWordsParts {
  std::vector<std::uint32_t> counts;  // of words, by length, from length 0 on
  std::vector<WordTrie::LetterSet> letters;
  std::vector<WordTrie::Frequency> frequencies;
  std::string text;
};

/// Lays out distinct words with their frequencies.
RankedWordsParts layOutRankedWords(
    std::span<const std::pair<std::string, WordTrie::Frequency>> words);

}  // namespace mirvane
