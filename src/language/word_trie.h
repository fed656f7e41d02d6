#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "language/payload_reader.h"

namespace mirvane {

/// Words as a tree of letters, each with how frequent it is, and at every node how frequent the
/// most frequent word below it is: a search can follow the promising branches first. Views memory
/// that it does not own.
class WordTrie {
 public:
  /// 1 (rarest) to 255; 32 steps are a factor of ten. 0 stands for "no word".
  using Frequency = std::uint8_t;

  /// A set of letters: bit 0 for 'a' to bit 25 for 'z', bit 26 for the apostrophe.
  using LetterSet = std::uint32_t;
  static LetterSet letterSet(char letter) {
    return letter == '\'' ? LetterSet{1} << 26 : LetterSet{1} << ((letter - 'a') & 31);
  }

  /// Of 27 letters, packed to eight bytes: a search looks at thousands of them.
  struct Node {
    std::uint32_t firstChild : 19;
    std::uint32_t childCount : 5;
    std::uint32_t bestFrequency : 8;  // of the words that end here or below
    LetterSet lettersBelow : 27;
    LetterSet letterNumber : 5;  // of the letter that leads to this node, as its bit in a set

    [[nodiscard]] char letter() const {
      return letterNumber == 26 ? '\'' : static_cast<char>('a' + letterNumber);
    }
  };
  static_assert(sizeof(Node) == 8);

  /// The trie without words.
  WordTrie() = default;

  /// Absent when the part is not that of a trie.
  static std::optional<WordTrie> read(PayloadReader& payload);

  [[nodiscard]] bool empty() const { return nodes_.empty(); }

  /// Only for a trie that is not empty.
  [[nodiscard]] const Node& root() const { return nodes_.front(); }

  [[nodiscard]] std::span<const Node> children(const Node& node) const {
    return nodes_.subspan(node.firstChild, node.childCount);
  }

  [[nodiscard]] std::size_t indexOf(const Node& node) const {
    return static_cast<std::size_t>(&node - nodes_.data());
  }

  /// Of the word that ends at a node.
  [[nodiscard]] Frequency frequency(const Node& node) const { return frequencies_[indexOf(node)]; }

  /// The child that this letter leads to, or null.
  [[nodiscard]] const Node* child(const Node& node, char letter) const;

  /// Where a text leads, or null.
  [[nodiscard]] const Node* find(std::string_view text) const;

 private:
  std::span<const Node> nodes_;
  std::span<const Frequency> frequencies_;
};

/// The parts of a trie, as WordTrie::read expects them.
struct WordTrieParts {
  std::vector<WordTrie::Node> nodes;
  std::vector<WordTrie::Frequency> frequencies;
};

/// Lays out distinct words of letters and apostrophes, sorted by their bytes, each with its
/// frequency; throws std::length_error when they are too many for the layout.
WordTrieParts layOutWordTrie(std::span<const std::pair<std::string, WordTrie::Frequency>> words);

}  // namespace mirvane
