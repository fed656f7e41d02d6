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

  struct Node {
    std::uint32_t firstChild;
    std::uint8_t childCount;
    char letter;              // that leads to this node
    Frequency frequency;      // of the word that ends here
    Frequency bestFrequency;  // of the words that end here or below
  };

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

  /// The child that this letter leads to, or null.
  [[nodiscard]] const Node* child(const Node& node, char letter) const;

  /// Where a text leads, or null.
  [[nodiscard]] const Node* find(std::string_view text) const;

 private:
  std::span<const Node> nodes_;
};

/// The nodes of a trie over distinct words, sorted by their bytes, each with its frequency.
std::vector<WordTrie::Node> layOutWordTrie(
    std::span<const std::pair<std::string, WordTrie::Frequency>> words);

}  // namespace mirvane
