#include "session/study_words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mirvane {
namespace {

/// The words of a text as "asWritten=normalized".
std::vector<std::string> words(std::string_view text) {
  std::vector<std::string> shown;
  for (const auto& word : studyWords(text)) shown.push_back(word.asWritten + '=' + word.normalized);
  return shown;
}

TEST(StudyWords, AreRunsOfLettersNumbersAndApostrophes) {
  const std::pair<const char*, std::vector<std::string>> rows[] = {
      {"", {}},
      {" ... 😀 - ", {}},
      {"The lazy dog.", {"The=the", "lazy=lazy", "dog=dog"}},
      {"Don't stop, 2nd!", {"Don't=don't", "stop=stop", "2nd=2nd"}},
      {"don’t", {"don=don", "t=t"}},
      {"well-known_x", {"well=well", "known=known", "x=x"}},
      {"CAFE\u0301 Été", {"CAFE\u0301=cafe\u0301", "Été=été"}},
      {"日本 ٣½Ⅷ", {"日本=日本", "٣½Ⅷ=٣½ⅷ"}},
      {"a👩‍💻b", {"a=a", "b=b"}},
      {"a'\u0301b", {"a=a", "b=b"}},
      {"'", {"'='"}},
  };
  for (const auto& [text, expected] : rows) EXPECT_EQ(words(text), expected) << text;
  EXPECT_EQ(normalizedWord("\"New York!\" 😀"), "newyork");
}

}  // namespace
}  // namespace mirvane
