#include "language/word_scan.h"

#include <algorithm>
#include <tuple>

#include "language/typed_word.h"
#include "language/typing_costs.h"

namespace mirvane {

namespace {

using typing_cost::Cost;
using Group = RankedWords::Group;

std::size_t lengthWithoutRepeats(std::string_view word) {
  std::size_t length = word.empty() ? 0 : 1;
  for (std::size_t i = 1; i < word.size(); ++i) {
    if (word[i] != word[i - 1]) ++length;
  }
  return length;
}

class Scan {
 public:
  Scan(const TypedWord& typed, const GuessLimits& limits)
      : typed_(typed),
        letters_(WordTrie::letterSetOf(typed.text())),
        shortest_(lengthWithoutRepeats(typed.text())),
        limits_(limits),
        bound_(limits.highestCost) {}

  void lookThrough(const Group& group) {
    const Cost lengthCost = leastForLength(group.length);
    for (std::size_t i = 0; i < group.size(); ++i) {
      const Cost rarity = typing_cost::rarity(group.frequencies[i]);
      if (rarity + lengthCost > bound_) return;  // the rest of the group is rarer still
      if (areTooForeign(group.letters[i], bound_ - rarity)) continue;
      const Cost cost = rarity + typed_.distanceTo(group.word(i), bound_ - rarity);
      if (cost <= bound_) take({std::string(group.word(i)), cost});
    }
  }

  /// How far from the typed word the lengths of a group are, for the likeliest ones first.
  [[nodiscard]] Cost leastForLength(std::size_t length) const {
    // Hardly a word misses more than two of its double letters.
    if (length > typed_.size()) {
      const auto missing = static_cast<Cost>(length - typed_.size());
      return std::min(missing, 2) * typing_cost::missedDouble +
             std::max(missing - 2, 0) * typing_cost::leastForNewLetter;
    }
    if (length >= shortest_) return 0;
    return static_cast<Cost>(shortest_ - length) * typing_cost::leastForExtraLetter;
  }

  std::vector<Guess> guesses() && { return std::move(guesses_); }

 private:
  // A letter that only one of the words has takes a slip, and no slip takes care of two of them in
  // the same word.
  [[nodiscard]] bool areTooForeign(WordTrie::LetterSet letters, Cost limit) const {
    const WordTrie::LetterSet missing = letters & ~letters_ & ~WordTrie::letterSet('\'');
    return costsMoreThan(letters_ & ~letters, typing_cost::leastForForeignLetter, limit) ||
           costsMoreThan(missing, typing_cost::leastForNewLetter, limit);
  }

  // Few sets have many letters to take out before the answer is known.
  static bool costsMoreThan(WordTrie::LetterSet letters, Cost each, Cost limit) {
    for (; letters != 0 && limit >= 0; letters &= letters - 1) limit -= each;
    return limit < 0;
  }

  void take(const Guess& guess) {
    const auto isCheaper = [](const Guess& a, const Guess& b) {
      return std::tie(a.cost, a.word) < std::tie(b.cost, b.word);
    };
    guesses_.insert(std::ranges::upper_bound(guesses_, guess, isCheaper), guess);
    bound_ = std::min(bound_, guesses_.front().cost + limits_.window);
    if (guesses_.size() > limits_.words) guesses_.pop_back();
    if (guesses_.size() == limits_.words) bound_ = std::min(bound_, guesses_.back().cost);
    while (guesses_.back().cost > bound_) guesses_.pop_back();
  }

  const TypedWord& typed_;
  WordTrie::LetterSet letters_;
  std::size_t shortest_;
  const GuessLimits& limits_;
  Cost bound_;  // no guess costs more
  std::vector<Guess> guesses_;
};

}  // namespace

std::vector<Guess> scanForNearestWords(const RankedWords& words, const TypedWord& typed,
                                       const GuessLimits& limits) {
  Scan scan(typed, limits);
  std::vector<const Group*> groups;
  for (const Group& group : words.groups()) groups.push_back(&group);
  std::ranges::stable_sort(groups, {}, [&](const Group* group) {
    const auto difference = static_cast<int>(group->length) - static_cast<int>(typed.size());
    return std::tuple(scan.leastForLength(group->length), std::abs(difference));
  });
  for (const Group* group : groups) scan.lookThrough(*group);
  return std::move(scan).guesses();
}

}  // namespace mirvane
