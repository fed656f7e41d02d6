#include "analyse/word_alignment.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <stdexcept>

#include "analyse/alignment.h"

namespace mirvane {
namespace {

/// Distance first, then the number of unequal pairs: one number that orders both.
using Cost = std::int64_t;
constexpr Cost perDistance = Cost{1} << 24U;
constexpr Cost equalWord = -1;

/// What the comparison of all words with all words may take.
constexpr std::size_t mostComparisons = std::size_t{1} << 27U;

struct Step {
  std::size_t meant;
  std::size_t typed;
};

/// In the order of preference among equals.
constexpr std::array<Step, 5> steps{{{1, 1}, {2, 1}, {1, 2}, {0, 1}, {1, 0}}};

using Words = std::vector<Symbols>;

Words symbolsOfWords(const std::vector<StudyWord>& words) {
  Words symbols;
  symbols.reserve(words.size());
  for (const auto& word : words) symbols.push_back(symbolsOf(word.normalized));
  return symbols;
}

std::size_t lengthOf(const Words& words) {
  std::size_t length = words.size() + 1;
  for (const auto& word : words) length += word.size();
  return length;
}

Symbols joined(const Symbols& first, const Symbols& second) {
  Symbols both = first;
  both.insert(both.end(), second.begin(), second.end());
  return both;
}

class WordTable {
 public:
  WordTable(Words meant, Words typed)
      : meant_(std::move(meant)), typed_(std::move(typed)), width_(typed_.size() + 1) {
    if (lengthOf(meant_) > mostComparisons / lengthOf(typed_)) {
      throw std::runtime_error("the texts are too long to be compared");
    }
    cells_.resize((meant_.size() + 1) * width_);
    for (std::size_t i = 0; i <= meant_.size(); ++i) {
      for (std::size_t j = 0; j <= typed_.size(); ++j) fill(i, j);
    }
  }

  [[nodiscard]] std::vector<WordPair> pairs(Prompt prompt) const {
    std::vector<WordPair> pairs;
    std::size_t i = prompt == Prompt::whole ? meant_.size() : bestBeginning();
    for (std::size_t j = typed_.size(); i > 0 || j > 0;) {
      const auto& [meant, typed] = steps.at(cell(i, j).step);
      i -= meant;
      j -= typed;
      pairs.push_back({i, meant, j, typed});
    }
    std::reverse(pairs.begin(), pairs.end());
    return pairs;
  }

 private:
  struct Cell {
    Cost cost = 0;
    std::size_t step = 0;
  };

  [[nodiscard]] const Cell& cell(std::size_t i, std::size_t j) const {
    return cells_[i * width_ + j];
  }

  void fill(std::size_t i, std::size_t j) {
    if (i == 0 && j == 0) return;
    Cell best{std::numeric_limits<Cost>::max(), 0};
    for (std::size_t k = 0; k < steps.size(); ++k) {
      const auto& step = steps.at(k);
      if (step.meant > i || step.typed > j) continue;
      const auto cost = cell(i - step.meant, j - step.typed).cost + costOf(step, i, j);
      if (cost < best.cost) best = {cost, k};
    }
    cells_[i * width_ + j] = best;
  }

  /// Of the step that ends with the i-th meant and the j-th typed word.
  [[nodiscard]] Cost costOf(const Step& step, std::size_t i, std::size_t j) const {
    if (step.typed == 0) return perDistance * static_cast<Cost>(meant_[i - 1].size());
    if (step.meant == 0) return perDistance * static_cast<Cost>(typed_[j - 1].size());
    if (step.meant == 2) {
      return distance(joined(meant_[i - 2], meant_[i - 1]), typed_[j - 1]) + perDistance;
    }
    if (step.typed == 2) {
      return distance(meant_[i - 1], joined(typed_[j - 2], typed_[j - 1])) + perDistance;
    }
    if (meant_[i - 1] == typed_[j - 1]) return equalWord;
    return distance(meant_[i - 1], typed_[j - 1]);
  }

  static Cost distance(const Symbols& meant, const Symbols& typed) {
    return perDistance * static_cast<Cost>(minimumStringDistance(meant, typed));
  }

  [[nodiscard]] std::size_t bestBeginning() const {
    std::size_t best = 0;
    for (std::size_t i = 1; i <= meant_.size(); ++i) {
      if (cell(i, typed_.size()).cost < cell(best, typed_.size()).cost) best = i;
    }
    return best;
  }

  Words meant_, typed_;
  std::size_t width_;
  std::vector<Cell> cells_;
};

}  // namespace

std::vector<WordPair> alignWords(const std::vector<StudyWord>& meant,
                                 const std::vector<StudyWord>& typed, Prompt prompt) {
  return WordTable(symbolsOfWords(meant), symbolsOfWords(typed)).pairs(prompt);
}

}  // namespace mirvane
