#include "language/repeated_letters.h"

#include <algorithm>
#include <cstddef>

namespace mirvane {
namespace {

constexpr int mostUnusualRuns = 1;
constexpr int mostRuns = 3;  // committee, successfully

bool isUnusual(char letter, std::size_t runLength) {
  constexpr std::string_view oftenDoubled = "bcdefglmnoprstz";
  return runLength > 2 || oftenDoubled.find(letter) == std::string_view::npos;
}

}  // namespace

bool hasTooManyRepeats(std::string_view lowerWord) {
  int runs = 0, unusualRuns = 0;
  for (std::size_t start = 0; start < lowerWord.size();) {
    const char letter = lowerWord[start];
    const auto end = std::min(lowerWord.find_first_not_of(letter, start), lowerWord.size());
    if (end - start > 1) {
      ++runs;
      if (isUnusual(letter, end - start)) ++unusualRuns;
    }
    start = end;
  }
  return runs > mostRuns || unusualRuns > mostUnusualRuns;
}

}  // namespace mirvane
