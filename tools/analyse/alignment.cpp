#include "analyse/alignment.h"

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

#include "text/canonical.h"
#include "text/characters.h"
#include "text/scalars.h"

namespace mirvane {
namespace {

/// What the table of distances may take: 128 MB, texts of some 5,000 characters.
constexpr std::size_t mostCells = std::size_t{1} << 25U;

/// No scalar has this bit.
constexpr std::uint32_t severalScalars = 0x80000000U;

std::uint32_t symbolOf(std::string_view character) {
  if (character.size() == 1) return static_cast<unsigned char>(character.front());
  const auto canonical = text::canonicalForm(character);
  std::size_t position = 0;
  const auto scalar = text::nextScalar(canonical, position);
  if (position == canonical.size()) return scalar;
  return severalScalars | static_cast<std::uint32_t>(std::hash<std::string>{}(canonical));
}

void requireComparable(std::size_t a, std::size_t b) {
  if ((a + 1) > mostCells / (b + 1)) {
    throw std::runtime_error("the texts are too long to be compared");
  }
}

/// at(i, j): the distance of the first i meant and the first j typed characters.
class Distances {
 public:
  Distances(const Symbols& meant, const Symbols& typed)
      : meant_(meant), typed_(typed), width_(typed.size() + 1) {
    requireComparable(meant.size(), typed.size());
    cells_.resize((meant.size() + 1) * width_);
    for (std::size_t i = 0; i <= meant.size(); ++i) {
      for (std::size_t j = 0; j <= typed.size(); ++j) cells_[i * width_ + j] = distance(i, j);
    }
  }

  [[nodiscard]] std::uint32_t at(std::size_t i, std::size_t j) const {
    return cells_[i * width_ + j];
  }
  [[nodiscard]] bool endsSubstituted(std::size_t i, std::size_t j) const {
    return i > 0 && j > 0 && at(i, j) == at(i - 1, j - 1) + cost(i, j);
  }
  [[nodiscard]] bool endsInserted(std::size_t i, std::size_t j) const {
    return j > 0 && at(i, j) == at(i, j - 1) + 1;
  }
  [[nodiscard]] bool endsRepeated(std::size_t i, std::size_t j) const {
    return j > 1 && typed_[j - 1] == typed_[j - 2] && endsInserted(i, j);
  }

 private:
  [[nodiscard]] std::uint32_t cost(std::size_t i, std::size_t j) const {
    return meant_[i - 1] == typed_[j - 1] ? 0 : 1;
  }
  [[nodiscard]] std::uint32_t distance(std::size_t i, std::size_t j) const {
    if (i == 0) return static_cast<std::uint32_t>(j);
    if (j == 0) return static_cast<std::uint32_t>(i);
    return std::min({at(i - 1, j - 1) + cost(i, j), at(i - 1, j) + 1, at(i, j - 1) + 1});
  }

  const Symbols& meant_;
  const Symbols& typed_;
  std::size_t width_;
  std::vector<std::uint32_t> cells_;
};

/// The alignment of the first `i` meant and the first `j` typed characters, found from its end.
std::vector<AlignedPair> traceBack(const Distances& distances, std::size_t i, std::size_t j) {
  std::vector<AlignedPair> pairs;
  while (i > 0 || j > 0) {
    const bool isRepeated = distances.endsRepeated(i, j);
    if (!isRepeated && distances.endsSubstituted(i, j)) {
      pairs.push_back({--i, --j});
    } else if (isRepeated || distances.endsInserted(i, j)) {
      pairs.push_back({.typed = --j});
    } else {
      pairs.push_back({.meant = --i});
    }
  }
  std::reverse(pairs.begin(), pairs.end());
  return pairs;
}

std::size_t lengthDifference(std::size_t a, std::size_t b) {
  return std::max(a, b) - std::min(a, b);
}

}  // namespace

Symbols symbolsOf(const std::vector<std::string_view>& characters) {
  Symbols symbols(characters.size());
  std::transform(characters.begin(), characters.end(), symbols.begin(), symbolOf);
  return symbols;
}

Symbols symbolsOf(std::string_view text) {
  return symbolsOf(text::characters(text));
}

std::size_t minimumStringDistance(const Symbols& a, const Symbols& b) {
  requireComparable(a.size(), b.size());
  thread_local std::vector<std::size_t> row;  // distances of one beginning of a to all of b
  row.resize(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const auto substituted = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({substituted, row[j] + 1, row[j - 1] + 1});
    }
  }
  return row[b.size()];
}

std::size_t minimumStringDistance(std::string_view a, std::string_view b) {
  return minimumStringDistance(symbolsOf(a), symbolsOf(b));
}

std::vector<AlignedPair> align(const Symbols& meant, const Symbols& typed) {
  return traceBack({meant, typed}, meant.size(), typed.size());
}

std::vector<AlignedPair> alignWithBeginning(const Symbols& meant, const Symbols& typed) {
  const Distances distances(meant, typed);
  std::size_t best = 0;
  for (std::size_t i = 1; i <= meant.size(); ++i) {
    const auto here = distances.at(i, typed.size());
    const auto least = distances.at(best, typed.size());
    const bool isCloser = lengthDifference(i, typed.size()) < lengthDifference(best, typed.size());
    if (here < least || (here == least && isCloser)) best = i;
  }
  return traceBack(distances, best, typed.size());
}

}  // namespace mirvane
