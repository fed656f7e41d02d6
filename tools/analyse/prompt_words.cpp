#include "analyse/prompt_words.h"

#include <algorithm>

#include "text/canonical.h"
#include "text/characters.h"

namespace mirvane {
namespace {

std::vector<StudyWord> wordsOf(const std::vector<TypedKey>& keys,
                               const TypedField::KeyNumbers& typed) {
  std::vector<std::string_view> characters;
  characters.reserve(typed.size());
  for (const auto number : typed) characters.emplace_back(keys[number].text);
  return studyWords(characters);
}

std::optional<MeantWord> meantIn(const WordPair& pair, const std::vector<StudyWord>& prompt) {
  if (pair.meantCount == 0) return std::nullopt;
  MeantWord meant{.position = pair.firstMeant};
  for (std::size_t i = 0; i < pair.meantCount; ++i) {
    const auto& word = prompt[pair.firstMeant + i];
    meant.asWritten += (i == 0 ? "" : " ") + word.asWritten;
    meant.normalized += word.normalized;
  }
  return meant;
}

bool isRightPair(const WordPair& pair, const std::vector<StudyWord>& prompt,
                 const std::vector<StudyWord>& typed) {
  return pair.meantCount == 1 && pair.typedCount == 1 &&
         text::canonicallyEqual(prompt[pair.firstMeant].normalized,
                                typed[pair.firstTyped].normalized);
}

}  // namespace

bool MeantWord::isRight(std::string_view word) const {
  return text::canonicallyEqual(normalizedWord(word), normalized);
}

std::size_t countRightWords(const std::vector<StudyWord>& prompt, std::string_view text) {
  const auto typed = studyWords(text);
  const auto pairs = alignWords(prompt, typed);
  return static_cast<std::size_t>(
      std::count_if(pairs.begin(), pairs.end(),
                    [&](const WordPair& pair) { return isRightPair(pair, prompt, typed); }));
}

PromptWords::PromptWords(const std::vector<StudyWord>& prompt, const std::vector<TypedKey>& keys,
                         const TypedField::KeyNumbers& typed, Prompt extent) {
  const auto words = wordsOf(keys, typed);
  for (const auto& pair : alignWords(prompt, words, extent)) {
    for (std::size_t i = 0; i < pair.typedCount; ++i) {
      const auto& word = words[pair.firstTyped + i];
      const auto first = typed.begin() + static_cast<std::ptrdiff_t>(word.start);
      words_.push_back(
          {{first, first + static_cast<std::ptrdiff_t>(word.length)}, meantIn(pair, prompt)});
    }
  }
}

std::optional<MeantWord> PromptWords::meantBy(const TypedField::KeyNumbers& word) const {
  const auto found = std::find_if(words_.begin(), words_.end(), [&](const Typed& typed) {
    return std::find_first_of(typed.keys.begin(), typed.keys.end(), word.begin(), word.end()) !=
           typed.keys.end();
  });
  return found == words_.end() ? std::nullopt : found->meant;
}

}  // namespace mirvane
