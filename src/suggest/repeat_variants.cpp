#include "suggest/repeat_variants.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "text/canonical.h"
#include "text/characters.h"

namespace mirvane {
namespace {

/// Each choice doubles the number of variants. No English word typed with a tremor comes near so
/// many; a hand resting on the keyboard does.
constexpr std::size_t mostCombinedChoices = 8;

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

/// A run that may have been meant once or twice.
bool hasChoice(const Run& run) {
  return run.count > 2 || (run.count == 2 && !isCommonlyDoubledLetter(run.character));
}

/// The word with every run brought down to one or two; `isDoubled` is asked about each run that has
/// a choice, from the left.
template <typename IsDoubled>
std::string expansion(const std::vector<Run>& runs, IsDoubled isDoubled) {
  std::string text;
  for (const auto& run : runs) {
    const bool isTwice = hasChoice(run) ? isDoubled() : run.count == 2;
    text += run.character;
    if (isTwice) text += run.character;
  }
  return text;
}

/// Every combination of the choices or, when there are too many, only the two extremes; single
/// before double.
std::vector<std::string> expansions(const std::vector<Run>& runs) {
  const auto choices = static_cast<std::size_t>(std::count_if(runs.begin(), runs.end(), hasChoice));
  if (choices > mostCombinedChoices) {
    return {expansion(runs, [] { return false; }), expansion(runs, [] { return true; })};
  }
  std::vector<std::string> texts;
  const std::uint32_t combinations = std::uint32_t{1} << choices;
  for (std::uint32_t doubled = 0; doubled < combinations; ++doubled) {
    std::uint32_t choice = combinations;
    texts.push_back(expansion(runs, [&] { return (doubled & (choice >>= 1)) != 0; }));
  }
  return texts;
}

}  // namespace

std::vector<std::string> repeatCollapseVariants(std::string_view word) {
  if (word.empty()) return {};
  // Different choices never give the same text, so only the word itself can occur again.
  std::vector<std::string> variants{std::string(word)};
  for (auto& text : expansions(splitIntoRuns(word))) {
    if (!text::canonicallyEqual(text, word)) variants.push_back(std::move(text));
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
