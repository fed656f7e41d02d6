#include "language/guess_search.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <unordered_set>

#include "language/typing_costs.h"

namespace mirvane {

namespace {

using typing_cost::Cost;
using Node = WordTrie::Node;

// A word ten times rarer is as far away as this many hundredths of an edit, over 32 steps.
constexpr int rarityWeight = 17;

Cost rarityCost(WordTrie::Frequency best) {
  return (255 - best) * rarityWeight / 32;
}

constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

struct State {
  const Node* node;
  std::uint32_t parent;  // the state this one came from
  std::uint32_t next;    // the next state in the same bucket
  std::int16_t cost;     // of the slips so far
  std::uint8_t typed;    // letters of the typed word explained
  bool finished;         // stands for the word that ends at the node
};

class Search {
 public:
  Search(const WordTrie& trie, std::string_view typed, const GuessLimits& limits)
      : trie_(trie), typed_(typed), limits_(limits), buckets_(bucketCount(limits), none) {}

  std::vector<Guess> run() {
    push({&trie_.root(), none, none, 0, 0, false});
    std::size_t steps = 0;
    for (std::size_t bucket = 0; bucket < buckets_.size(); ++bucket) {
      while (buckets_[bucket] != none) {
        const std::uint32_t index = buckets_[bucket];
        buckets_[bucket] = states_[index].next;
        if (states_[index].finished) {
          if (!take(index)) return std::move(guesses_);
        } else if (isNew(states_[index])) {
          if (++steps > limits_.steps) return std::move(guesses_);
          expand(index);
        }
      }
    }
    return std::move(guesses_);
  }

 private:
  static std::size_t bucketCount(const GuessLimits& limits) {
    return static_cast<std::size_t>(limits.highestCost) + 1;
  }

  static Cost totalCost(const State& state) {
    return state.cost +
           rarityCost(state.finished ? state.node->frequency : state.node->bestFrequency);
  }

  void push(const State& state) {
    const auto bucket = static_cast<std::size_t>(totalCost(state));
    if (bucket >= buckets_.size()) return;
    states_.push_back(state);
    states_.back().next = buckets_[bucket];
    buckets_[bucket] = static_cast<std::uint32_t>(states_.size() - 1);
  }

  // The first time a state is reached is the cheapest.
  bool isNew(const State& state) {
    return seen_.insert(trie_.indexOf(*state.node) << 8 | state.typed).second;
  }

  // False when the search is over.
  bool take(std::uint32_t index) {
    const Cost cost = totalCost(states_[index]);
    if (!guesses_.empty() && cost > guesses_.front().cost + limits_.window) return false;
    std::string word = wordOf(index);
    const bool isKnown =
        std::ranges::any_of(guesses_, [&](const Guess& guess) { return guess.word == word; });
    if (!isKnown) guesses_.push_back({std::move(word), cost});
    return guesses_.size() < limits_.words;
  }

  std::string wordOf(std::uint32_t index) const {
    std::string letters;
    while (states_[index].parent != none) {
      const State& state = states_[index];
      const State& parent = states_[state.parent];
      if (state.node != parent.node) letters.push_back(state.node->letter);
      const bool swapped = state.typed == parent.typed + 2;
      if (swapped) letters.push_back(typed_[parent.typed + 1U]);
      index = state.parent;
    }
    return {letters.rbegin(), letters.rend()};
  }

  void expand(std::uint32_t index) {
    const State state = states_[index];
    const std::size_t at = state.typed;
    if (at == typed_.size() && state.node->frequency != 0) {
      push({state.node, state.parent, none, state.cost, state.typed, true});
    }
    if (at < typed_.size()) skipTypedLetter(state, index);
    for (const Node& child : trie_.children(*state.node)) followLetter(state, index, child);
  }

  void skipTypedLetter(const State& state, std::uint32_t index) {
    const std::size_t at = state.typed;
    const char before = at > 0 ? typed_[at - 1] : '\0';
    const char after = at + 1 < typed_.size() ? typed_[at + 1] : '\0';
    add(state, index, *state.node, typing_cost::extraLetter(typed_[at], before, after), 1);
  }

  void followLetter(const State& state, std::uint32_t index, const Node& child) {
    const std::size_t at = state.typed;
    const char meant = child.letter;
    add(state, index, child, typing_cost::missingLetter(meant, state.node->letter), 0);
    if (at >= typed_.size()) return;
    add(state, index, child, typing_cost::substitution(typed_[at], meant), 1);
    if (at + 1 >= typed_.size() || typed_[at + 1] != meant || typed_[at] == meant) return;
    if (const Node* second = trie_.child(child, typed_[at])) {
      add(state, index, *second, typing_cost::swap(), 2);
    }
  }

  void add(const State& from, std::uint32_t index, const Node& node, Cost slip, int typedLetters) {
    const bool atStart = from.typed == 0 && slip > 0;
    const Cost cost = from.cost + slip + (atStart ? typing_cost::firstLetter() : 0);
    push({&node, index, none, static_cast<std::int16_t>(cost),
          static_cast<std::uint8_t>(from.typed + typedLetters), false});
  }

  const WordTrie& trie_;
  std::string_view typed_;
  const GuessLimits& limits_;
  std::vector<std::uint32_t> buckets_;
  std::vector<State> states_;
  std::unordered_set<std::size_t> seen_;
  std::vector<Guess> guesses_;
};

}  // namespace

std::vector<Guess> nearestWords(const WordTrie& trie, std::string_view typed,
                                const GuessLimits& limits) {
  if (trie.empty() || typed.empty()) return {};
  return Search(trie, typed, limits).run();
}

}  // namespace mirvane
