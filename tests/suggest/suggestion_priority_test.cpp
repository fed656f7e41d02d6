#include "suggest/suggestion_priority.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "model/user_settings.h"
#include "platform/simulated/in_memory_user_defaults.h"
#include "platform/simulated/in_memory_workspace.h"
#include "suggest/repeat_variants.h"
#include "support/scripted_english.h"

namespace mirvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

struct Row {
  const char* word;
  const char* candidate;
  double score;
};

class Ranking : public testing::Test {
 protected:
  static EnglishScript script() {
    return {.words = {{"known", "hole"}, {}, {}}, .unigrams = {{"ten", 10}}};
  }
  static TypingConfig tuning() {
    TypingConfig config;
    config.nearbyKeyProbabilities = {{"r", {{"t", 0.25}}}, {"k", {{"l", 0.1}, {"o", 0.2}}}};
    return config;
  }

  double score(const char* word, const char* candidate, const TypingState* state = nullptr) const {
    return priority.suggestionScore({word, knownWords}, candidate, nullptr, state);
  }

  ScriptedEnglish english{script()};
  simulated::InMemoryUserDefaults defaults;
  simulated::InMemoryWorkspace workspace;
  UserSettings settings{defaults, workspace};
  TypingConfig config = tuning();
  KnownWords knownWords{english.services().spellChecker, settings};
  NearbyKeys nearbyKeys{config};
  ContextScore contextScore{english.services().vocabulary, nullptr, english.services().tagger};
  SuggestionPriority priority{config, knownWords, nearbyKeys, contextScore};
};

TEST_F(Ranking, RecognisesKindsOfErrors) {
  const Row rows[] = {
      {"rhe", "the", 0.25},                       // neighbouring key
      {"RHE", "the", 0.25},                       // letter case does not count
      {"the", "rhe", 0},                          // the other way round is not in the table
      {"teh", "the", 1.5 + 0.35 / 3},             // adjacent swap
      {"hetal", "hatel", 0.8 + 0.35 / 5},         // distant swap
      {"abcd", "badc", 0},                        // two swaps are none
      {"leter", "letter", 1.5 + 0.35 * 3 / 6},    // missed double
      {"ot", "oot", 1.0 + 1.5 + 0.35 / 3},        // in a short word, also a missed vowel
      {"ketter", "kettter", 1.5 + 0.35 * 4 / 7},  // a triple typed as a double
      {"frm", "from", 1.5 + 0.35 * 2 / 4},        // missed vowel
      {"bk", "bake", 1.2 + 0.35 / 4},             // two missed vowels
      {"bk", "bakeo", 0.35 / 5},                  // three are too many
      {"hel", "hello", 0.35 * 3 / 5 - 0.45},      // completion
      {"hole", "hale", 0.35 / 4 - 3},             // a known word
      {"hole", "holes", 0.35 * 4 / 5 - 3.45},     // a completed known word
      {"Hole", "hole", 0.35},                     // the known word itself
      {"ho\u0301le", "hóle", 0.35},               // canonically equivalent
      {"😀b", "😀c", 0.35 / 2},                     // characters, not bytes
      {"kkk", "o", 0.2 + 1.5},                    // repeated and beside the key
      {"kkk", "k", 2.2 + 0.35 / 3},               // repeated
  };
  for (const auto& row : rows) {
    EXPECT_NEAR(score(row.word, row.candidate), row.score, 1e-12) << row.word << row.candidate;
  }
}

TEST_F(Ranking, WeighsMotorAndSpellingByTheMotorPrior) {
  constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
  const struct {
    double prior, motor, phonetic;
  } rows[] = {{-3, 1, 1}, {0, 1, 1}, {0.5, 1.2, 0.925}, {7, 1.4, 0.85}, {notANumber, 1.4, 0.85}};
  for (const auto& row : rows) {
    const TypingState state{.motorPrior = row.prior};
    EXPECT_NEAR(score("teh", "the", &state), 1.5 * row.motor + 0.35 / 3 * row.phonetic, 1e-12)
        << row.prior;
  }
}

TEST_F(Ranking, PutsTheBestFirstAndKeepsTheOrderOfTies) {
  const auto rank = [&](const char* word, Texts candidates) {
    return priority.rankSuggestions(word, std::move(candidates), nullptr, nullptr);
  };
  EXPECT_THAT(rank("teh", {"ten", "the"}), ElementsAre("the", "ten"));
  EXPECT_THAT(rank("zzq", {"ba", "ab", "the", "ten"}), ElementsAre("ba", "ab", "the", "ten"));
  EXPECT_THAT(rank("", {"b", "a"}), ElementsAre("b", "a"));
  EXPECT_THAT(rank("teh", {}), IsEmpty());
}

TEST(Suggestions, AreLedByTheWordItselfWhenItIsKnown) {
  const ScriptedEnglish english(
      {.words = {{"form", "from"}, {{"form", {"from"}}}, {}}, .unigrams = {{"from", 100}}});
  simulated::InMemoryUserDefaults defaults;
  const simulated::InMemoryWorkspace workspace;
  const UserSettings settings(defaults, workspace);
  const TypingConfig config;
  const SuggestionEngine engine(config, settings, english.services());
  const ContextSignals context;
  EXPECT_THAT(engine.suggestionsFor("Form", &context, {}), ElementsAre("form"));
  EXPECT_THAT(engine.suggestionsFor("form", &context, {}), ElementsAre("form", "from"));
}

}  // namespace
}  // namespace mirvane
