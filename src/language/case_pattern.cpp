#include "language/case_pattern.h"

#include <algorithm>

namespace mirvane {

namespace {

bool isUpper(char c) {
  return c >= 'A' && c <= 'Z';
}
bool isLower(char c) {
  return c >= 'a' && c <= 'z';
}
char toUpper(char c) {
  return isLower(c) ? static_cast<char>(c - ('a' - 'A')) : c;
}

}  // namespace

CasePattern casePatternOf(std::string_view word) {
  const auto capitals = std::ranges::count_if(word, isUpper);
  if (capitals == 0) return CasePattern::lower;
  if (capitals == 1 && isUpper(word.front())) return CasePattern::capitalised;
  return std::ranges::any_of(word, isLower) ? CasePattern::mixed : CasePattern::upper;
}

std::string inCasePattern(std::string word, CasePattern pattern) {
  if (pattern == CasePattern::upper) std::ranges::transform(word, word.begin(), toUpper);
  if (pattern == CasePattern::capitalised && !word.empty()) word.front() = toUpper(word.front());
  return word;
}

char asciiLowerCaseLetter(char letter) {
  return isUpper(letter) ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

std::string asciiLowerCase(std::string_view word) {
  std::string lower(word);
  std::ranges::transform(lower, lower.begin(), asciiLowerCaseLetter);
  return lower;
}

}  // namespace mirvane
