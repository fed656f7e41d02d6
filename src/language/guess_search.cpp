#include "language/guess_search.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <tuple>
#include <utility>

#include "language/typed_word.h"
#include "language/word_set.h"

namespace mirvane {

namespace {

using typing_cost::Cost;
using Node = WordTrie::Node;
using LetterSet = WordTrie::LetterSet;

// The nearest words so far.
class Nearest {
 public:
  Nearest(const GuessLimits& limits, Cost bound) : limits_(limits), bound_(bound) {}

  // The most that the slips of a word may cost for it to be one of the nearest.
  [[nodiscard]] Cost highestSlips(WordTrie::Frequency frequency) const {
    return std::min(bound_ - typing_cost::rarity(frequency), limits_.costliestSlips);
  }

  void take(Guess guess) {
    const auto known = std::ranges::find(guesses_, guess.word, &Guess::word);
    if (known != guesses_.end()) {
      if (known->cost <= guess.cost) return;
      guesses_.erase(known);
    }
    const auto isCheaper = [](const Guess& a, const Guess& b) {
      return std::tie(a.cost, a.word) < std::tie(b.cost, b.word);
    };
    guesses_.insert(std::ranges::upper_bound(guesses_, guess, isCheaper), std::move(guess));
    bound_ = std::min(bound_, guesses_.front().cost + limits_.window);
    if (guesses_.size() > limits_.words) guesses_.pop_back();
    if (guesses_.size() == limits_.words) bound_ = std::min(bound_, guesses_.back().cost);
    while (guesses_.back().cost > bound_) guesses_.pop_back();
  }

  [[nodiscard]] std::vector<Guess> guesses() && { return std::move(guesses_); }

 private:
  const GuessLimits& limits_;
  Cost bound_;  // no guess costs more
  std::vector<Guess> guesses_;
};

// Looks through a trie from one end of the words.
class Search {
 public:
  Search(const WordTrie& trie, std::string_view typed, Reading reading)
      : trie_(trie),
        typed_(typed, reading),
        reading_(reading),
        half_(reading == Reading::forward ? typed.size() / 2 : (typed.size() - 1) / 2) {
    for (std::size_t i = typed_.size(); i-- > 0;) {
      const LetterSet letter = typed_.extra(i) < typing_cost::leastForForeignLetter
                                   ? 0
                                   : WordTrie::letterSet(typed_.letter(i));
      toCome_[i] = toCome_[i + 1] | letter;
      if (i < half_) toComeInHalf_[i] = toComeInHalf_[i + 1] | letter;
    }
    typed_.fillFirstRow(rows_[0]);
  }

  void run(Nearest& nearest) {
    nearest_ = &nearest;
    visit(trie_.root(), 0);
  }

 private:
  // Goes on from a node whose row is rows_[depth].
  void visit(const Node& node, std::size_t depth) {
    if (depth == WordSet::longestWord) return;
    const char before = depth > 0 ? path_[depth - 1] : '\0';
    TypedWord::Row& row = rows_[depth + 1];
    for (const Node& child : trie_.children(node)) {
      const Cost limit =
          nearest_->highestSlips(static_cast<WordTrie::Frequency>(child.bestFrequency));
      if (limit < 0) continue;
      const char letter = path_[depth] = child.letter();
      typed_.fillRow(row, rows_[depth], rows_[depth > 0 ? depth - 1 : 0], letter, before);
      if (row[typed_.size()] <= limit) takeIfWord(child, depth + 1);
      if (child.childCount == 0) continue;
      forbidCostlyHalf(row, limit / 2);
      if (mayLeadToWord(child, depth + 1, limit)) visit(child, depth + 1);
    }
  }

  void takeIfWord(const Node& node, std::size_t length) {
    const WordTrie::Frequency frequency = trie_.frequency(node);
    const Cost slips = rows_[length][typed_.size()];
    if (frequency == 0 || slips > nearest_->highestSlips(frequency)) return;
    std::string word(path_.data(), length);
    if (reading_ == Reading::backward) std::ranges::reverse(word);
    nearest_->take({std::move(word), slips + typing_cost::rarity(frequency)});
  }

  void forbidCostlyHalf(TypedWord::Row& row, Cost limit) const {
    for (std::size_t i = 0; i <= half_; ++i) {
      if (row[i] > limit) row[i] = forbidden;
    }
  }

  // Whether some way to explain the typed letters by the words below a node stays within a limit.
  [[nodiscard]] bool mayLeadToWord(const Node& node, std::size_t depth, Cost limit) const {
    const TypedWord::Row& row = rows_[depth];
    for (std::size_t i = 0; i <= typed_.size(); ++i) {
      if (row[i] <= limit && mayGoOn(i, row[i], node, limit)) return true;
    }
    // The last letter may be the first one of a swap.
    const TypedWord::Row& above = rows_[depth - 1];
    for (auto places = typed_.placesOf(path_[depth - 1]) >> 1; places != 0; places &= places - 1) {
      const auto i = static_cast<std::size_t>(std::countr_zero(places));
      if (mayGoOn(i + 2, above[i] + typing_cost::swap, node, limit)) return true;
    }
    return false;
  }

  // Letters to come that no word below has cost a slip each.
  [[nodiscard]] bool mayGoOn(std::size_t place, Cost cost, const Node& node, Cost limit) const {
    return !costsMoreThan(toCome_[place] & ~node.lettersBelow, limit - cost) &&
           (place >= half_ ||
            !costsMoreThan(toComeInHalf_[place] & ~node.lettersBelow, limit / 2 - cost));
  }

  static bool costsMoreThan(LetterSet letters, Cost limit) {
    for (; letters != 0 && limit >= 0; letters &= letters - 1) {
      limit -= typing_cost::leastForForeignLetter;
    }
    return limit < 0;
  }

  static constexpr std::int16_t forbidden = 16000;

  const WordTrie& trie_;
  const TypedWord typed_;
  const Reading reading_;
  const std::size_t half_;
  Nearest* nearest_ = nullptr;
  // Which letters the typed word still holds from each place on, and up to its half, but for
  // repeated ones, which may be there by a cheap slip.
  std::array<LetterSet, WordSet::longestWord + 1> toCome_{};
  std::array<LetterSet, WordSet::longestWord + 1> toComeInHalf_{};
  std::array<TypedWord::Row, WordSet::longestWord + 1> rows_{};
  std::array<char, WordSet::longestWord> path_{};
};

// The lower its limit the quicker is a search, and most words are found within this one.
constexpr Cost nearCost = 180;

}  // namespace

std::vector<Guess> nearestWords(const WordTrie& forward, const WordTrie& backward,
                                std::string_view typed, const GuessLimits& limits) {
  if (forward.empty() || backward.empty()) return {};
  if (typed.empty() || typed.size() > WordSet::longestWord) return {};
  Search fromStart(forward, typed, Reading::forward);
  Search fromEnd(backward, typed, Reading::backward);
  const auto within = [&](Cost bound) {
    Nearest nearest(limits, bound);
    fromStart.run(nearest);
    fromEnd.run(nearest);
    return std::move(nearest).guesses();
  };
  if (nearCost + limits.window < limits.highestCost) {
    std::vector<Guess> guesses = within(nearCost + limits.window);
    const bool isComplete = !guesses.empty() && guesses.front().cost <= nearCost;
    if (isComplete) return guesses;
  }
  return within(limits.highestCost);
}

}  // namespace mirvane
