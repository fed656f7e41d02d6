#include "suggest/context_signals.h"

#include <algorithm>

#include "text/characters.h"
#include "text/letter_case.h"
#include "text/scalars.h"
#include "text/utf16.h"

namespace mirvane {
namespace {

bool isContextWordCharacter(std::string_view character) {
  return character == "'" || text::isLetter(text::firstScalar(character));
}

}  // namespace

std::vector<std::string_view> contextWords(std::string_view text) {
  std::vector<std::string_view> words;
  std::size_t position = 0, wordStart = 0;
  const auto endWord = [&] {
    if (position > wordStart) words.push_back(text.substr(wordStart, position - wordStart));
  };
  for (const auto character : text::characters(text)) {
    if (!isContextWordCharacter(character)) {
      endWord();
      wordStart = position + character.size();
    }
    position += character.size();
  }
  endWord();
  return words;
}

ContextSignals extractContextSignals(std::string_view text, std::int64_t caret, std::size_t span,
                                     const LexicalTagger& tagger) {
  const std::size_t split = text::byteOffset(text, caret);
  auto before = contextWords(text.substr(0, split));
  const auto after = contextWords(text.substr(split));
  if (!before.empty()) before.pop_back();  // the word that is being ranked

  ContextSignals signals;
  if (!before.empty()) {
    signals.prevWord = before.back();
    signals.prevPOS = tagger.tag(before.back());
  }
  if (!after.empty()) signals.nextWord = after.front();
  const std::size_t first = before.size() - std::min(before.size(), span);
  for (std::size_t i = first; i < before.size(); ++i) {
    signals.surroundingWords.push_back(text::lowercased(before[i]));
  }
  for (std::size_t i = 0; i < std::min(after.size(), span); ++i) {
    signals.surroundingWords.push_back(text::lowercased(after[i]));
  }
  return signals;
}

}  // namespace mirvane
