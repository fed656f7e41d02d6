#include "suggest/candidate_generation.h"

#include <algorithm>
#include <utility>

#include "suggest/edit_candidates.h"
#include "suggest/repeat_variants.h"
#include "suggest/unique_texts.h"
#include "suggest/vowels.h"
#include "text/characters.h"
#include "text/letter_case.h"
#include "text/scalars.h"

namespace mirvane {
namespace {

/// Longer than any word of a dictionary: a key that was held down.
constexpr std::size_t longestWord = 128;
constexpr std::size_t longestWordForInsertions = 8;
constexpr std::size_t longestWordForVowelPairs = 6;

bool holdsVowel(std::string_view word) {
  const auto characters = text::characters(word);
  return std::any_of(characters.begin(), characters.end(), isVowel);
}

bool isPossessive(std::string_view text) {
  return text.ends_with("'s") || text.ends_with("'S");
}

}  // namespace

bool CandidateGeneration::mayHaveCandidates(std::string_view word) {
  return !word.empty() && std::all_of(word.begin(), word.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x80 && (text::isLetter(byte) || byte == '\'');
  });
}

std::vector<std::string> CandidateGeneration::generateCandidates(
    std::string_view word, const std::vector<std::string>& variants) const {
  if (!mayHaveCandidates(word)) return {};
  UniqueTexts found;
  for (const auto& variant : variants) {
    if (variant.size() > longestWord) continue;
    auto lower = text::lowercased(variant);
    if (knownWords_.isKnownWord(lower)) found.add(std::move(lower));
    for (auto& suggestion : spellCheckerSuggestions(variant)) found.add(std::move(suggestion));
  }
  for (const auto& variant : variants) {
    if (variant.size() > longestWord) continue;
    for (auto& edit : editCandidates(variant)) found.add(std::move(edit));
  }
  auto candidates = found.take();
  if (knownWords_.isAllowListed(word)) putAllowedWordFirst(word, candidates);
  std::erase_if(candidates, [this, lowerWord = text::lowercased(word)](const auto& candidate) {
    return isPossessive(candidate) || !isValidCandidate(candidate, lowerWord);
  });
  return candidates;
}

std::vector<std::string> CandidateGeneration::spellCheckerSuggestions(std::string_view word) const {
  UniqueTexts found;
  for (auto& completion : spellChecker_.completions(word)) found.add(std::move(completion));
  for (auto& guess : spellChecker_.guesses(word)) found.add(std::move(guess));
  return found.take();
}

std::vector<std::string> CandidateGeneration::editCandidates(std::string_view word) const {
  const auto length = text::characterCount(word);
  const auto lower = text::lowercased(word);
  if (length < 2 || knownWords_.isKnownWord(lower)) return {};
  EditCandidates edits(lower, knownWords_);
  edits.tryNearbyKeys(nearbyKeys_);
  if (length <= longestWordForInsertions) edits.tryInsertedLetters();
  if (length <= longestWordForVowelPairs && !holdsVowel(lower)) edits.tryInsertedVowelPairs();
  return edits.take();
}

bool CandidateGeneration::isValidCandidate(std::string_view text,
                                           std::string_view lowerWord) const {
  const std::string lower = text::lowercased(text);
  return knownWords_.isAllowListed(lower) ||
         (knownWords_.isSpelledCorrectly(lower) &&
          (lower == lowerWord || spellChecker_.mayBeSuggested(lower)));
}

void CandidateGeneration::putAllowedWordFirst(std::string_view word,
                                              std::vector<std::string>& candidates) const {
  std::erase_if(candidates, [&](const std::string& candidate) {
    return text::equalIgnoringCase(candidate, word);
  });
  candidates.insert(candidates.begin(), text::lowercased(word));
}

}  // namespace mirvane
