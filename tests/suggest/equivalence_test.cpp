#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <random>

#include "correct/correction_confidence.h"
#include "platform/simulated/in_memory_user_defaults.h"
#include "platform/simulated/in_memory_workspace.h"
#include "suggest/plain_reference.h"
#include "suggest/suggestion_engine.h"
#include "support/scripted_english.h"
#include "support/shipped_resources.h"

namespace mirvane {
namespace {

const std::vector<std::string> allowed{"Mirv", "hte", "oo'k", "bob's"};
const std::vector<TypingState> states{{},
                                      {.isRepeating = true, .motorPrior = 0.37},
                                      {.isRepeating = true, .motorPrior = 1},
                                      {.isRepeating = false, .motorPrior = -3}};

/// Words as they come: real ones, mistyped ones and noise.
class WordSource {
 public:
  explicit WordSource(std::vector<std::string> words) : words_(std::move(words)) {}

  std::string next() {
    std::string word = below(4) == 0 ? noise() : words_[below(words_.size())];
    for (std::size_t slips = below(3); slips > 0; --slips) slip(word);
    if (below(6) == 0 && !word.empty()) word[0] = upper(word[0]);
    if (below(20) == 0) std::transform(word.begin(), word.end(), word.begin(), upper);
    return word;
  }

 private:
  static char upper(char c) {
    return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  }
  std::size_t below(std::size_t limit) { return random_() % limit; }
  char letter() { return "aeioulstnrdhgbk'zxqw"[below(20)]; }

  std::string noise() {
    std::string text(1 + below(9), ' ');
    for (char& c : text) c = letter();
    return text;
  }

  void slip(std::string& word) {
    const std::size_t at = below(word.size() + 1);
    switch (at == word.size() ? 0 : below(5)) {
      case 0:
        word.insert(at, 1, letter());
        break;
      case 1:
        word.insert(at, 1 + below(2), word[at]);
        break;
      case 2:
        if (word.size() > 1) word.erase(at, 1);
        break;
      case 3:
        std::swap(word[at], word[word.size() / 2]);
        break;
      default:
        word[at] = letter();
    }
  }

  std::vector<std::string> words_;
  std::minstd_rand random_{20261122};
};

/// Sets the engine and the plain reference beside each other.
class Comparison {
 public:
  Comparison(const LanguageServices& language, const TypingConfig& config)
      : engine_(config, settings_, language), reference_(language.spellChecker, config, allowed) {
    settings_.setAllowList(allowed);
  }

  void expectSame(const std::string& word, const TypingState* state) const {
    const auto candidates = engine_.candidateGeneration.generateCandidates(word);
    ASSERT_EQ(candidates, reference_.generateCandidates(word)) << word;
    ASSERT_EQ(engine_.suggestionPriority.rankSuggestions(word, candidates, nullptr, state),
              reference_.rank(word, candidates, state))
        << word;
    const SuggestionPriority::RankedWord ranked(word, engine_.knownWords);
    for (const auto& candidate : candidates) {
      ASSERT_EQ(engine_.suggestionPriority.suggestionScore(ranked, candidate, nullptr, state),
                reference_.score(word, candidate, state))
          << word << ' ' << candidate;
      ASSERT_EQ(correctionConfidence(word, candidate, engine_.knownWords, engine_.nearbyKeys),
                reference_.confidence(word, candidate))
          << word << ' ' << candidate;
    }
  }

  void expectSame(WordSource words, std::size_t count) const {
    for (std::size_t i = 0; i < count && !testing::Test::HasFatalFailure(); ++i) {
      const std::size_t state = i % (states.size() + 1);
      expectSame(words.next(), state == 0 ? nullptr : &states[state - 1]);
    }
  }

 private:
  simulated::InMemoryUserDefaults defaults_;
  simulated::InMemoryWorkspace workspace_;
  UserSettings settings_{defaults_, workspace_};
  SuggestionEngine engine_;
  PlainReference reference_;
};

/// A dictionary in which nearly everything short is a word, so that there are many candidates.
EnglishScript crowdedScript() {
  EnglishScript script;
  auto& known = script.words.known;
  const std::string letters = "aeiolstnrb'";
  for (const char a : letters) {
    for (const char b : letters) {
      for (const char c : letters) known.insert({a, b, c});
      for (const char c : letters) known.insert({b, a, c, b});
    }
  }
  for (const char* word : {"let's", "book", "bake", "hello", "Paris"}) known.insert(word);
  script.words.guesses = {{"teh", {"The", "ten", "the", "té"}},
                          {"sol", {"sool", "unheard"}},
                          {"café", {"lan"}},
                          {"e-mail", {"lan"}},
                          {"a1", {"lan"}}};
  script.words.completions = {{"l", {"let's", "let'S", "lin"}}, {"la", {"lan", "lan", "Lan"}}};
  return script;
}

std::vector<std::string> shippedWords(const SpellChecker& spellChecker) {
  std::vector<std::string> words{"didn't", "stella", "bookkeeper", "mississippi"};
  for (char first = 'a'; first <= 'z'; ++first) {
    for (char second = 'a'; second <= 'z'; ++second) {
      const auto found = spellChecker.completions(std::string{first, second});
      words.insert(words.end(), found.begin(), found.end());
    }
  }
  return words;
}

TEST(Equivalence, HoldsWithTheShippedEnglish) {
  ShippedResources shipped;
  const auto language = shipped.language();
  auto words = shippedWords(language.spellChecker);
  ASSERT_GT(words.size(), 300U);
  Comparison(language, shipped.typingConfig()).expectSame(WordSource(std::move(words)), 2000);
}

TEST(Equivalence, HoldsWithACrowdedDictionaryAndTheBuiltInLayout) {
  const auto script = crowdedScript();
  const ScriptedEnglish english(script);
  const TypingConfig config;
  WordSource words({script.words.known.begin(), script.words.known.end()});
  Comparison(english.services(), config).expectSame(std::move(words), 4000);
}

TEST(Equivalence, HoldsForEveryKeyOfTheBuiltInLayout) {
  const std::string letters = "abcdefghijklmnopqrstuvwxyz";
  for (const char typed : letters) {
    EnglishScript script;
    for (const char meant : letters) script.words.known.insert({meant, '\'', 'z'});
    script.words.known.erase({typed, '\'', 'z'});
    Comparison(ScriptedEnglish(script).services(), {}).expectSame({typed, '\'', 'z'}, nullptr);
  }
}

TEST(Equivalence, HoldsForTheWordsOfTheScriptsAndTheAllowList) {
  const ScriptedEnglish english(crowdedScript());
  TypingConfig config;
  config.nearbyKeyProbabilities = {{"l", {{"n", 0.1}, {"s", 0.3}}}, {"o", {{"b", 0.2}}}};
  const Comparison comparison(english.services(), config);
  for (const char* word : {"",      "a",       "'",      "teh",  "TEH",    "sol",   "SOL", "l",
                           "la",    "Mirv",    "mirv",   "hte",  "OO'K",   "bob's", "bk",  "Paris",
                           "let's", "hellllo", "aabbcc", "café", "e-mail", "a1",    "a’s"}) {
    for (const auto& state : states) comparison.expectSame(word, &state);
  }
}

}  // namespace
}  // namespace mirvane
