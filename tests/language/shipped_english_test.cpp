#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "language/english_language.h"
#include "platform/linux/resource_bundle.h"

namespace mirvane {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

class ShippedEnglish : public testing::Test {
 protected:
  static const EnglishLanguage& english() {
    static const EnglishLanguage language =
        loadEnglishLanguage(ResourceBundle(standardResourceFolder()));
    return language;
  }
  static const SpellChecker& words() { return *english().spellChecker; }
};

TEST_F(ShippedEnglish, AcceptsOrdinaryText) {
  for (const char* word :
       {"its",     "it's",    "don't",    "i'm",      "I'm",       "stella",     "Stella",
        "colour",  "color",   "organise", "organize", "went",      "children's", "o'clock",
        "fiance",  "comb",    "tuesday",  "London",   "sam",       "mr",         "a",
        "i",       "z",       "the",      "quick",    "brown",     "fox",        "jumps",
        "over",    "lazy",    "dog",      "sells",    "shells",    "shore",      "every",
        "morning", "please",  "call",     "bring",    "these",     "things",     "store",
        "bought",  "some",    "fresh",    "apples",   "yesterday", "Rebecca",    "Amy",
        "Roy",     "Ian",     "Leo",      "Liz",      "Noah",      "Amy's",      "app",
        "id",      "covid",   "asap",     "lol",      "selfie",    "grandad",    "kerb",
        "enrol",   "yoghurt", "mg",       "tram",     "soy",       "nerd",       "ale",
        "hog",     "pun",     "ark",      "gel",      "peg",       "gran",       "wed",
        "rots",    "leant",   "gaol",     "foetus",   "queueing",  "daren't",    "c'mon",
        "C'mon",   "'em",     "there'll", "there'd",  "where'd",   "what'd",     "o'brien",
        "o'neill", "l'oreal"}) {
    EXPECT_TRUE(words().isCorrect(word)) << word;
  }
}

TEST_F(ShippedEnglish, AcceptsEveryPieceThatAnApostropheCuts) {
  for (const char* piece :
       {"didn", "doesn", "couldn", "isn",   "won", "t",  "s",  "d",  "m",     "ll",    "ve",   "re",
        "o",    "don",   "ain",    "daren", "mon", "em", "ne", "er", "brien", "neill", "oreal"}) {
    EXPECT_TRUE(words().isCorrect(piece)) << piece;
  }
}

TEST_F(ShippedEnglish, RejectsTyposAndTheForbiddenShortcuts) {
  for (const char* word :
       {"teh", "dont", "cant", "wont", "helllo", "im", "adn", "hte", "thw", "wsa", "recieve", "qqq",
        "zz", "tHe", "'", "didn's", "ll's", "t's", "don't's"}) {
    EXPECT_FALSE(words().isCorrect(word)) << word;
  }
}

TEST_F(ShippedEnglish, GuessesWhatWasMeant) {
  std::istringstream typedAndMeant(
      // neighbouring keys
      "srore store beown brown posdible possible functikns functions thw the "
      // keys hit on the way
      "remqains remains sterps steps sterlla stella partieds parties "
      // missed letters
      "plannig planning unluck unlucky brwn brown leter letter "
      // swapped letters
      "teh the Teh The TEH THE documetn document qiuck quick hwo who wnet went "
      // repeated letters
      "helllo hello haaaave have connnntinued continued yesteerdayy yesterday "
      // two slips in a word
      "lhto onto frsnts grants elllectic electric thhhhag that atttachd attached "
      "ibcreaased increased "
      // misspellings
      "recieve receive seperate separate definately definitely accomodate accommodate "
      "dont don't cant can't nessecary necessary ");
  for (std::string typed, meant; typedAndMeant >> typed >> meant;) {
    EXPECT_FALSE(words().isCorrect(typed)) << typed;
    EXPECT_THAT(words().guesses(typed), Contains(meant)) << typed;
  }
}

TEST_F(ShippedEnglish, GuessesOnlyTheLikeliestWhenAnotherWouldLookLikelier) {
  EXPECT_THAT(words().guesses("unluck"), Not(Contains("unlock")));
  EXPECT_THAT(words().guesses("plannig"), Not(Contains("planing")));
}

TEST_F(ShippedEnglish, OffersOnlyWordsItAccepts) {
  for (const char* typed : {"teh", "thhee", "wrng", "exmple", "abotu", "Wrod", "SPELING"}) {
    const auto guesses = words().guesses(typed);
    EXPECT_FALSE(guesses.empty()) << typed;
    for (const auto& guess : guesses) EXPECT_TRUE(words().isCorrect(guess)) << guess;
  }
  for (const char* beginning : {"te", "th", "wron", "exam", "abou", "Wor", "SPEL"}) {
    const auto completions = words().completions(beginning);
    EXPECT_FALSE(completions.empty()) << beginning;
    for (const auto& word : completions) EXPECT_TRUE(words().isCorrect(word)) << word;
  }
}

TEST_F(ShippedEnglish, GuessesNothingForPossessivesAndApostrophes) {
  for (const char* word : {"dog's", "dogs'", "'", "''"}) {
    EXPECT_THAT(words().guesses(word), IsEmpty()) << word;
  }
}

TEST_F(ShippedEnglish, NeverOffersVulgarWordsAndSlurs) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {"shir", "shit"},   {"fick", "fuck"},  {"fuckk", "fuck"},   {"cunr", "cunt"},
      {"bich", "bitch"},  {"pusy", "pussy"}, {"fagot", "faggot"}, {"dicj", "dick"},
      {"penid", "penis"}, {"wankk", "wank"}, {"niger", "nigger"}, {"asshol", "asshole"},
      {"whor", "whore"},  {"slutt", "slut"}, {"retar", "retard"}};
  for (const auto& [typed, word] : rows) {
    EXPECT_TRUE(words().isCorrect(word)) << word;
    EXPECT_FALSE(words().mayBeSuggested(word)) << word;
    EXPECT_THAT(words().guesses(typed), Not(Contains(word))) << typed;
    for (std::size_t size = 1; size < word.size(); ++size) {
      EXPECT_THAT(words().completions(word.substr(0, size)), Not(Contains(word))) << word;
    }
  }
  for (const char* word : {"store", "don't", "paris"}) {
    EXPECT_TRUE(words().mayBeSuggested(word)) << word;
  }
}

TEST_F(ShippedEnglish, CompletesWithTheMostFrequentWord) {
  EXPECT_THAT(words().completions("beautif"), Contains("beautiful"));
  EXPECT_THAT(words().completions("Yest"), Contains("Yesterday"));
}

TEST_F(ShippedEnglish, TagsAndComparesWords) {
  const LexicalTagger& tagger = *english().tagger;
  const std::vector<std::pair<std::string, LexicalClass>> rows{
      {"dog", LexicalClass::noun},
      {"went", LexicalClass::verb},
      {"beautiful", LexicalClass::adjective},
      {"She", LexicalClass::pronoun},
      {"i'm", LexicalClass::pronoun},
      {"i", LexicalClass::pronoun},
      {"my", LexicalClass::determiner},
      {"the", LexicalClass::determiner},
      {"to", LexicalClass::preposition},
      {"of", LexicalClass::preposition},
      {"don't", LexicalClass::verb},
      {"two", LexicalClass::other},
      {"quickly", LexicalClass::other}};
  for (const auto& [word, lexicalClass] : rows) EXPECT_EQ(tagger.tag(word), lexicalClass) << word;
  ASSERT_NE(english().embedding, nullptr);
  const WordEmbedding& embedding = *english().embedding;
  EXPECT_LT(embedding.distance("dog", "cat"), embedding.distance("dog", "parliament"));
  EXPECT_EQ(embedding.distance("dog", "dgo"), 2.0);
}

}  // namespace
}  // namespace mirvane
