#include "language/dictionary.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "language/case_pattern.h"
#include "language/completion_search.h"
#include "language/guess_search.h"
#include "language/guess_selection.h"
#include "language/repeated_letters.h"

namespace mirvane {

namespace {

// A completion competes with the guesses for the few places a reader looks at.
constexpr std::size_t completionCount = 1;
constexpr GuessLimits guessLimits{
    .words = 6, .window = 54, .highestCost = 390, .costliestSlips = 280};

bool isLetter(char c) {
  return c >= 'a' && c <= 'z';
}

// Letters and apostrophes, not apostrophes alone.
bool isTypeable(std::string_view lowerCase) {
  return lowerCase.size() <= WordSet::longestWord && std::ranges::any_of(lowerCase, isLetter) &&
         std::ranges::all_of(lowerCase, [](char c) { return isLetter(c) || c == '\''; });
}

// "dog" of "dog's", "dogs" of "dogs'"; empty when there is no such ending.
std::string_view ownerOf(std::string_view word) {
  if (word.ends_with("'s")) return word.substr(0, word.size() - 2);
  if (word.ends_with("s'")) return word.substr(0, word.size() - 1);
  return {};
}

std::vector<std::string> inCasePattern(std::vector<std::string> words, CasePattern pattern) {
  for (std::string& word : words) word = inCasePattern(std::move(word), pattern);
  return words;
}

}  // namespace

Dictionary::Dictionary(const std::filesystem::path& path) : file_(DataFile::open(path, fileKind)) {
  if (!file_) return;
  PayloadReader payload(file_->payload());
  const auto accepted = WordSet::read(payload);
  const auto offered = WordTrie::read(payload);
  const auto offeredBackward = WordTrie::read(payload);
  if (!accepted || !offered || !offeredBackward) return;
  accepted_ = *accepted;
  offered_ = *offered;
  offeredBackward_ = *offeredBackward;
}

bool Dictionary::isCorrect(std::string_view word) const {
  if (accepted_.contains(word)) return true;
  // Everything that is not a lower-case letter sorts before 'a' or is no part of a word.
  if (word.size() > WordSet::longestWord ||
      std::ranges::none_of(word, [](char c) { return c < 'a'; })) {
    return false;
  }
  const CasePattern pattern = casePatternOf(word);
  if (pattern == CasePattern::mixed) return false;
  std::array<char, WordSet::longestWord> lower;
  std::ranges::transform(word, lower.begin(), asciiLowerCaseLetter);
  return isKnownInLowerCase({lower.data(), word.size()});
}

bool Dictionary::isKnownInLowerCase(std::string_view word) const {
  if (accepted_.contains(word)) return true;
  // Neither pieces such as "didn" and "t" nor "don't" own anything.
  const std::string_view owner = ownerOf(word);
  return !owner.empty() && owner.find('\'') == std::string_view::npos && mayBeSuggested(owner);
}

bool Dictionary::mayBeSuggested(std::string_view word) const {
  const WordTrie::Node* node = offered_.find(word);
  return node != nullptr && offered_.frequency(*node) > 0;
}

std::vector<std::string> Dictionary::completions(std::string_view prefix) const {
  const std::string lower = asciiLowerCase(prefix);
  if (lower.empty()) return {};
  return inCasePattern(mostFrequentCompletions(offered_, lower, completionCount),
                       casePatternOf(prefix));
}

std::vector<std::string> Dictionary::guesses(std::string_view word) const {
  const std::string lower = asciiLowerCase(word);
  if (!isTypeable(lower)) return {};
  if (isKnownInLowerCase(lower) || hasTooManyRepeats(lower)) return {};
  const std::vector<Guess> nearest = nearestWords(offered_, offeredBackward_, lower, guessLimits);
  return inCasePattern(worthOffering(lower, nearest), casePatternOf(word));
}

}  // namespace mirvane
