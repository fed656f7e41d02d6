#include "language/dictionary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "packed_dictionary.h"
#include "tests/language/temporary_file.h"

namespace mirvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DictionaryTest : public testing::Test {
 protected:
  static std::string bytes() {
    std::istringstream lines(
        "the 255\ntea 120\nten 150\nhello 150\nhelp 160\nhelped 100\nhelpful 110\nsea 140\n"
        "don't 200\ndon 0\nt 0\ncan't 180\n");
    return packedDictionary(lines);
  }

  TemporaryFile file_{bytes()};
  Dictionary dictionary_{file_.path()};
};

TEST_F(DictionaryTest, AcceptsKnownWordsInSensibleCase) {
  for (const char* word : {"the", "The", "THE", "don't", "Don't", "DON'T", "don", "t", "T", "sea's",
                           "Sea's", "SEA'S"}) {
    EXPECT_TRUE(dictionary_.isCorrect(word)) << word;
  }
  for (const char* word :
       {"", "'", "''", "teh", "tHe", "THe", "thee", "th", "the's'", "'s", "don's", "don't's", "t's",
        "caf\xc3\xa9", "\xff", "the ", "the1", "se\xe2\x80\x99s"}) {
    EXPECT_FALSE(dictionary_.isCorrect(word)) << word;
  }
  EXPECT_FALSE(dictionary_.isCorrect(std::string(60, 'a')));
  EXPECT_FALSE(dictionary_.isCorrect(std::string(100000, 'A')));
}

TEST_F(DictionaryTest, CompletesByFrequencyAndInCase) {
  EXPECT_THAT(dictionary_.completions("hel"), ElementsAre("help"));
  EXPECT_THAT(dictionary_.completions("help"), ElementsAre("helpful"));
  EXPECT_THAT(dictionary_.completions("Hell"), ElementsAre("Hello"));
  EXPECT_THAT(dictionary_.completions("HELL"), ElementsAre("HELLO"));
  EXPECT_THAT(dictionary_.completions("helpful"), IsEmpty());
  EXPECT_THAT(dictionary_.completions(""), IsEmpty());
  EXPECT_THAT(dictionary_.completions("xyz"), IsEmpty());
}

TEST_F(DictionaryTest, GuessesInTheCaseOfTheWord) {
  EXPECT_THAT(dictionary_.guesses("teh"), ElementsAre("the"));
  EXPECT_THAT(dictionary_.guesses("Teh"), ElementsAre("The"));
  EXPECT_THAT(dictionary_.guesses("TEH"), ElementsAre("THE"));
  EXPECT_THAT(dictionary_.guesses("dont"), ElementsAre("don't"));
}

TEST_F(DictionaryTest, GuessesNothingForKnownUntypeableOrHopelessWords) {
  for (const char* word : {"the", "The", "", "te1", "caf\xc3\xa9", "two words", "qqxzjv"}) {
    EXPECT_THAT(dictionary_.guesses(word), IsEmpty()) << word;
  }
  EXPECT_THAT(dictionary_.guesses(std::string(60, 'z')), IsEmpty());
  EXPECT_THAT(dictionary_.guesses(std::string(100000, 'z')), IsEmpty());
}

TEST(Dictionary, NeverOffersLoosePieces) {
  std::istringstream lines("didn 0\ndidn't 200\ndid 220\n");
  const TemporaryFile file(packedDictionary(lines));
  const Dictionary dictionary(file.path());
  EXPECT_TRUE(dictionary.isCorrect("didn"));
  EXPECT_FALSE(dictionary.mayBeSuggested("didn"));
  EXPECT_FALSE(dictionary.mayBeSuggested("di"));
  EXPECT_TRUE(dictionary.mayBeSuggested("didn't"));
  EXPECT_THAT(dictionary.completions("didn"), ElementsAre("didn't"));
  EXPECT_THAT(dictionary.guesses("dodn"), testing::Not(testing::Contains("didn")));
}

}  // namespace
}  // namespace mirvane
