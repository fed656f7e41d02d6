#include "session/study_words.h"

#include <algorithm>

#include "text/characters.h"
#include "text/letter_case.h"
#include "text/scalars.h"

namespace mirvane {
namespace {

bool isStudyWordCharacter(std::string_view character) {
  const char32_t scalar = text::firstScalar(character);
  return character == "'" || text::isLetter(scalar) || text::isNumber(scalar);
}

StudyWord wordAt(const std::vector<std::string_view>& characters, std::size_t start,
                 std::size_t end) {
  StudyWord word{.start = start, .length = end - start};
  for (std::size_t i = start; i < end; ++i) word.asWritten += characters[i];
  word.normalized = normalizedWord(word.asWritten);
  return word;
}

}  // namespace

std::vector<StudyWord> studyWords(std::string_view text) {
  return studyWords(text::characters(text));
}

std::vector<StudyWord> studyWords(const std::vector<std::string_view>& characters) {
  std::vector<StudyWord> words;
  const auto end = characters.end();
  for (auto start = characters.begin(); start != end;) {
    start = std::find_if(start, end, isStudyWordCharacter);
    const auto stop = std::find_if_not(start, end, isStudyWordCharacter);
    auto word = wordAt(characters, static_cast<std::size_t>(start - characters.begin()),
                       static_cast<std::size_t>(stop - characters.begin()));
    if (!word.normalized.empty()) words.push_back(std::move(word));
    start = stop;
  }
  return words;
}

std::string normalizedWord(std::string_view text) {
  const std::string lower = text::lowercased(text);
  std::string normalized;
  for (const auto character : text::characters(lower)) {
    if (isStudyWordCharacter(character)) normalized += character;
  }
  return normalized;
}

}  // namespace mirvane
