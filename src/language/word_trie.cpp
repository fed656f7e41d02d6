#include "language/word_trie.h"

#include <algorithm>

namespace mirvane {

std::optional<WordTrie> WordTrie::read(PayloadReader& payload) {
  const auto nodes = payload.next<Node>();
  if (!nodes) return std::nullopt;
  // Children lie behind their parent, so no walk is endless or leaves the nodes.
  for (std::size_t i = 0; i < nodes->size(); ++i) {
    const Node& node = (*nodes)[i];
    if (node.childCount == 0) continue;
    if (node.firstChild <= i || node.firstChild + node.childCount > nodes->size()) {
      return std::nullopt;
    }
  }
  WordTrie trie;
  trie.nodes_ = *nodes;
  return trie;
}

const WordTrie::Node* WordTrie::child(const Node& node, char letter) const {
  for (const Node& candidate : children(node)) {
    if (candidate.letter == letter) return &candidate;
  }
  return nullptr;
}

const WordTrie::Node* WordTrie::find(std::string_view text) const {
  const Node* node = empty() ? nullptr : &root();
  for (const char letter : text) {
    if (node == nullptr) break;
    node = child(*node, letter);
  }
  return node;
}

namespace {

using FrequentWord = std::pair<std::string, WordTrie::Frequency>;

// The words that run through one node.
struct Branch {
  std::size_t node;
  std::span<const FrequentWord> words;
  std::size_t depth;
};

std::span<const FrequentWord> sharingLetter(std::span<const FrequentWord> words,
                                            std::size_t depth) {
  const char letter = words.front().first[depth];
  const auto end = std::ranges::find_if(
      words, [&](const FrequentWord& word) { return word.first[depth] != letter; });
  return words.first(static_cast<std::size_t>(end - words.begin()));
}

WordTrie::Node nodeFor(std::span<const FrequentWord> words, std::size_t depth) {
  const auto best = std::ranges::max_element(words, {}, &FrequentWord::second);
  const bool ends = words.front().first.size() == depth;
  const char letter = depth == 0 ? '\0' : words.front().first[depth - 1];
  return {0, 0, letter, ends ? words.front().second : WordTrie::Frequency{0}, best->second};
}

}  // namespace

std::vector<WordTrie::Node> layOutWordTrie(std::span<const FrequentWord> words) {
  if (words.empty()) return {};
  // Breadth first, so that the children of a node lie side by side.
  std::vector<WordTrie::Node> nodes{nodeFor(words, 0)};
  std::vector<Branch> branches{{0, words, 0}};
  for (std::size_t next = 0; next < branches.size(); ++next) {
    const Branch branch = branches[next];
    auto rest = branch.words.subspan(nodes[branch.node].frequency != 0 ? 1 : 0);
    nodes[branch.node].firstChild = static_cast<std::uint32_t>(nodes.size());
    while (!rest.empty()) {
      const auto shared = sharingLetter(rest, branch.depth);
      branches.push_back({nodes.size(), shared, branch.depth + 1});
      nodes.push_back(nodeFor(shared, branch.depth + 1));
      ++nodes[branch.node].childCount;
      rest = rest.subspan(shared.size());
    }
  }
  return nodes;
}

}  // namespace mirvane
