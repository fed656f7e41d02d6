#include "language/guess_search.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

#include "language/state_set.h"
#include "language/typed_word.h"
#include "language/word_scan.h"
#include "language/word_set.h"

namespace mirvane {

namespace {

using typing_cost::Cost;
using Node = WordTrie::Node;

// Quicker for the usual few letters than a population count without the machine's instruction.
int countLetters(WordTrie::LetterSet letters) {
  int count = 0;
  for (; letters != 0; letters &= letters - 1) ++count;
  return count;
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
  Search(const WordTrie& trie, const TypedWord& typedWord, const GuessLimits& limits)
      : trie_(trie),
        word_(typedWord),
        typed_(typedWord.text()),
        limits_(limits),
        buckets_(bucketCount(limits), none) {
    states_.reserve(4096);
    // A letter just typed may be there only because it was repeated, which is cheap.
    WordTrie::LetterSet letters = 0;
    for (std::size_t i = typed_.size(); i-- > 0;) {
      const bool repeated = i > 0 && typed_[i] == typed_[i - 1];
      remainingLetters_[i] = repeated ? letters & ~WordTrie::letterSet(typed_[i])
                                      : letters | WordTrie::letterSet(typed_[i]);
      letters |= WordTrie::letterSet(typed_[i]);
    }
  }

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

  Cost totalCost(const State& state) const {
    if (state.finished) return state.cost + typing_cost::rarity(state.node->frequency);
    const auto foreign = remainingLetters_[state.typed] & ~state.node->lettersBelow;
    return state.cost + typing_cost::rarity(state.node->bestFrequency) +
           countLetters(foreign) * typing_cost::leastForForeignLetter;
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
    return seen_.insert(static_cast<std::uint32_t>(trie_.indexOf(*state.node) << 6 | state.typed));
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
    add(state, index, *state.node, word_.extra(state.typed), 1);
  }

  void followLetter(const State& state, std::uint32_t index, const Node& child) {
    const std::size_t at = state.typed;
    const char meant = child.letter;
    add(state, index, child, TypedWord::missing(at, meant, state.node->letter), 0);
    if (at >= typed_.size()) return;
    add(state, index, child, word_.substitution(at, meant), 1);
    if (at + 1 >= typed_.size() || typed_[at + 1] != meant || typed_[at] == meant) return;
    if (const Node* second = trie_.child(child, typed_[at])) {
      add(state, index, *second, TypedWord::swap(at), 2);
    }
  }

  void add(const State& from, std::uint32_t index, const Node& node, Cost slip, int typedLetters) {
    push({&node, index, none, static_cast<std::int16_t>(from.cost + slip),
          static_cast<std::uint8_t>(from.typed + typedLetters), false});
  }

  const WordTrie& trie_;
  const TypedWord& word_;
  std::string_view typed_;
  const GuessLimits& limits_;
  std::vector<std::uint32_t> buckets_;
  std::vector<State> states_;
  // Which letters the typed word still holds from each position on.
  std::array<WordTrie::LetterSet, WordSet::longestWord + 1> remainingLetters_{};
  StateSet seen_;
  std::vector<Guess> guesses_;
};

// Up to here the search over the trie is quicker than a look at every word.
constexpr int nearCost = 180;
constexpr int scanStep = 60;

// The scan is the quicker the lower its limit, so the limit rises step by step.
std::vector<Guess> scanInSteps(const RankedWords& words, const TypedWord& typed, int firstLimit,
                               const GuessLimits& limits) {
  for (int limit = firstLimit;; limit += scanStep) {
    GuessLimits step = limits;
    step.highestCost = std::min(limit, limits.highestCost) + limits.window;
    std::vector<Guess> guesses = scanForNearestWords(words, typed, step);
    const bool isComplete = !guesses.empty() && guesses.front().cost <= limit;
    if (isComplete || limit >= limits.highestCost) return guesses;
  }
}

}  // namespace

std::vector<Guess> nearestWords(const WordTrie& trie, const RankedWords& words,
                                std::string_view text, const GuessLimits& limits) {
  if (trie.empty() || text.empty() || text.size() > WordSet::longestWord) return {};
  const TypedWord typed(text);
  GuessLimits near = limits;
  near.highestCost = std::min(nearCost, limits.highestCost);
  std::vector<Guess> guesses = Search(trie, typed, near).run();
  if (guesses.empty()) return scanInSteps(words, typed, nearCost + scanStep, limits);
  const int best = guesses.front().cost;
  const bool isComplete =
      guesses.size() == limits.words || best + limits.window <= near.highestCost;
  return isComplete ? guesses : scanInSteps(words, typed, best, limits);
}

}  // namespace mirvane
