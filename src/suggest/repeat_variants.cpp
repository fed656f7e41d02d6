#include "suggest/repeat_variants.h"

#include <cstddef>

#include "text/canonical.h"
#include "text/characters.h"

namespace mirvane {
namespace {

struct Run {
  std::string_view character;
  std::size_t count = 1;
};

std::vector<Run> splitIntoRuns(std::string_view word) {
  std::vector<Run> runs;
  for (const auto character : text::characters(word)) {
    if (!runs.empty() && text::sameCharacter(runs.back().character, character)) {
      ++runs.back().count;
    } else {
      runs.push_back({character});
    }
  }
  return runs;
}

bool isCommonlyDoubledLetter(std::string_view character) {
  constexpr std::string_view commonlyDoubledLetters = "lseofrtnpcdgm";
  return character.size() == 1 && commonlyDoubledLetters.find(character) != std::string_view::npos;
}

/// Appends every expansion of the runs from `next` on to `prefix`, single before double.
void expand(const std::vector<Run>& runs, std::size_t next, std::string& prefix,
            std::vector<std::string>& expansions) {
  if (next == runs.size()) {
    expansions.push_back(prefix);
    return;
  }
  const auto& [character, count] = runs[next];
  const std::size_t length = prefix.size();
  const bool isMeantAsTyped = count == 2 && isCommonlyDoubledLetter(character);
  prefix += character;
  if (!isMeantAsTyped) expand(runs, next + 1, prefix, expansions);
  if (count > 1) {
    prefix += character;
    expand(runs, next + 1, prefix, expansions);
  }
  prefix.resize(length);
}

}  // namespace

std::vector<std::string> repeatCollapseVariants(std::string_view word) {
  if (word.empty()) return {};
  std::vector<std::string> expansions;
  std::string prefix;
  expand(splitIntoRuns(word), 0, prefix, expansions);

  // Different choices never give the same text, so only the word itself can occur again.
  std::vector<std::string> variants{std::string(word)};
  for (auto& expansion : expansions) {
    if (!text::canonicallyEqual(expansion, word)) variants.push_back(std::move(expansion));
  }
  return variants;
}

bool hasTripleRepeat(std::string_view word) {
  for (const auto& run : splitIntoRuns(word)) {
    if (run.count >= 3) return true;
  }
  return false;
}

}  // namespace mirvane
