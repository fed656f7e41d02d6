#include "language/word_trie.h"

#include <algorithm>
#include <bit>
#include <stdexcept>
#include <utility>

namespace mirvane {

namespace {

constexpr unsigned letterNumberOfApostrophe = 26;

}  // namespace

std::optional<WordTrie> WordTrie::read(PayloadReader& payload) {
  const auto nodes = payload.next<Node>();
  const auto frequencies = payload.next<Frequency>();
  if (!nodes || !frequencies || nodes->size() != frequencies->size()) return std::nullopt;
  // Children lie behind their parent, so no walk is endless or leaves the nodes.
  for (std::size_t i = 0; i < nodes->size(); ++i) {
    const Node& node = (*nodes)[i];
    if (node.letterNumber > letterNumberOfApostrophe) return std::nullopt;
    const std::size_t firstChild = node.firstChild, end = firstChild + node.childCount;
    if (end > nodes->size() || (node.childCount > 0 && firstChild <= i)) return std::nullopt;
  }
  WordTrie trie;
  trie.nodes_ = *nodes;
  trie.frequencies_ = *frequencies;
  return trie;
}

const WordTrie::Node* WordTrie::child(const Node& node, char letter) const {
  for (const Node& candidate : children(node)) {
    if (candidate.letter() == letter) return &candidate;
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

// The words that run through one node and do not end there.
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
  const char letter = depth == 0 ? 'a' : words.front().first[depth - 1];
  WordTrie::Node node{};
  node.bestFrequency = best->second;
  node.letterNumber = static_cast<unsigned>(std::countr_zero(WordTrie::letterSet(letter))) & 31U;
  return node;
}

// From the last node to the first: children lie behind their parent.
void collectLettersBelow(std::vector<WordTrie::Node>& nodes) {
  for (std::size_t i = nodes.size(); i-- > 0;) {
    const std::span<const WordTrie::Node> children =
        std::span(nodes).subspan(nodes[i].firstChild, nodes[i].childCount);
    for (const WordTrie::Node& child : children) {
      nodes[i].lettersBelow |= 1U << child.letterNumber | child.lettersBelow;
    }
  }
}

// Breadth first, so that the children of a node lie side by side.
class Layout {
 public:
  explicit Layout(std::span<const FrequentWord> words) { add(words, 0); }

  WordTrieParts run() {
    for (std::size_t next = 0; next < branches_.size(); ++next) addChildren(branches_[next]);
    collectLettersBelow(parts_.nodes);
    return std::move(parts_);
  }

 private:
  void add(std::span<const FrequentWord> words, std::size_t depth) {
    const bool ends = words.front().first.size() == depth;
    branches_.push_back({parts_.nodes.size(), words.subspan(ends ? 1 : 0), depth});
    parts_.nodes.push_back(nodeFor(words, depth));
    parts_.frequencies.push_back(ends ? words.front().second : WordTrie::Frequency{0});
    if (parts_.nodes.size() > mostNodes) throw std::length_error("word trie");
  }

  void addChildren(Branch branch) {
    const std::size_t firstChild = parts_.nodes.size();
    while (!branch.words.empty()) {
      const auto shared = sharingLetter(branch.words, branch.depth);
      add(shared, branch.depth + 1);
      branch.words = branch.words.subspan(shared.size());
    }
    WordTrie::Node& node = parts_.nodes[branch.node];
    node.firstChild = static_cast<std::uint32_t>(firstChild) & mostNodes;
    node.childCount = static_cast<std::uint32_t>(parts_.nodes.size() - firstChild) & 31U;
  }

  static constexpr std::uint32_t mostNodes = (1U << 19) - 1;

  WordTrieParts parts_;
  std::vector<Branch> branches_;
};

}  // namespace

WordTrieParts layOutWordTrie(std::span<const FrequentWord> words) {
  return words.empty() ? WordTrieParts{} : Layout(words).run();
}

}  // namespace mirvane
