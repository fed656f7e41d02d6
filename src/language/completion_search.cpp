#include "language/completion_search.h"

#include <algorithm>
#include <tuple>

namespace mirvane {

namespace {

// A branch still to look into, or, when it is finished, a word.
struct Branch {
  const WordTrie::Node* node;
  std::string text;
  bool finished;

  unsigned promise;  // the frequency of the word, or of the most frequent one in the branch
};

// For a heap with the most promising branch at its front.
bool isBehind(const Branch& a, const Branch& b) {
  return std::forward_as_tuple(a.promise, b.text) < std::forward_as_tuple(b.promise, a.text);
}

class Search {
 public:
  explicit Search(const WordTrie& trie) : trie_(trie) {}

  std::vector<std::string> run(const WordTrie::Node& start, std::string_view prefix,
                               std::size_t count) {
    addChildren({&start, std::string(prefix), false, start.bestFrequency});
    std::vector<std::string> words;
    while (!branches_.empty() && words.size() < count) {
      std::ranges::pop_heap(branches_, isBehind);
      Branch branch = std::move(branches_.back());
      branches_.pop_back();
      if (branch.finished) {
        words.push_back(std::move(branch.text));
        continue;
      }
      addChildren(branch);
      const auto frequency = trie_.frequency(*branch.node);
      if (frequency != 0) add({branch.node, std::move(branch.text), true, frequency});
    }
    return words;
  }

 private:
  void addChildren(const Branch& branch) {
    for (const WordTrie::Node& child : trie_.children(*branch.node)) {
      add({&child, branch.text + child.letter(), false, child.bestFrequency});
    }
  }

  void add(Branch branch) {
    branches_.push_back(std::move(branch));
    std::ranges::push_heap(branches_, isBehind);
  }

  const WordTrie& trie_;
  std::vector<Branch> branches_;
};

}  // namespace

std::vector<std::string> mostFrequentCompletions(const WordTrie& trie, std::string_view prefix,
                                                 std::size_t count) {
  const WordTrie::Node* start = trie.find(prefix);
  if (start == nullptr) return {};
  return Search(trie).run(*start, prefix, count);
}

}  // namespace mirvane
