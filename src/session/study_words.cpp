#include "session/study_words.h"

#include "text/characters.h"
#include "text/letter_case.h"
#include "text/scalars.h"

namespace mirvane {
namespace {

bool isStudyWordCharacter(std::string_view character) {
  const char32_t scalar = text::firstScalar(character);
  return character == "'" || text::isLetter(scalar) || text::isNumber(scalar);
}

void appendWord(std::vector<StudyWord>& words, std::string& run) {
  auto normalized = normalizedWord(run);
  if (!normalized.empty()) words.push_back({run, std::move(normalized)});
  run.clear();
}

}  // namespace

std::vector<StudyWord> studyWords(std::string_view text) {
  std::vector<StudyWord> words;
  std::string run;
  for (const auto character : text::characters(text)) {
    if (isStudyWordCharacter(character)) {
      run += character;
    } else {
      appendWord(words, run);
    }
  }
  appendWord(words, run);
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
