#include "suggest/candidate_generation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
using Script = simulated::ScriptedSpellChecker::Script;

/// The candidates of a word in such an English, with the built-in key layout.
Texts candidates(const std::string& word, const SpellChecker& spellChecker,
                 const Texts& allowList = {}) {
  simulated::InMemoryUserDefaults defaults;
  const simulated::InMemoryWorkspace workspace;
  UserSettings settings(defaults, workspace);
  settings.setAllowList(allowList);
  const TypingConfig config;
  const KnownWords knownWords(spellChecker, settings);
  const NearbyKeys nearbyKeys(config);
  return CandidateGeneration(spellChecker, knownWords, nearbyKeys).generateCandidates(word);
}

Texts candidates(const std::string& word, const Script& script, const Texts& allowList = {}) {
  return candidates(word, simulated::ScriptedSpellChecker(script), allowList);
}

class WithoutSuggestingDamn : public simulated::ScriptedSpellChecker {
 public:
  using ScriptedSpellChecker::ScriptedSpellChecker;
  [[nodiscard]] bool mayBeSuggested(std::string_view word) const override { return word != "damn"; }
};

TEST(RepeatCollapseVariants, StartWithTheWordAndTakeTheSingleLetterFirst) {
  EXPECT_THAT(repeatCollapseVariants(""), IsEmpty());
  EXPECT_THAT(repeatCollapseVariants("helllo"), ElementsAre("helllo", "helo", "hello"));
  EXPECT_THAT(repeatCollapseVariants("book"), ElementsAre("book"));
  EXPECT_THAT(repeatCollapseVariants("aabb"), ElementsAre("aabb", "ab", "abb", "aab"));
  EXPECT_THAT(repeatCollapseVariants("xéé"), ElementsAre("xéé", "xé"));
}

TEST(Candidates, OfAKnownWordStartWithItInLowerCase) {
  const Script script{{"the", "then", "The"}, {{"the", {"then"}}}, {{"the", {"The", "then"}}}};
  EXPECT_THAT(candidates("the", script), ElementsAre("the", "The", "then"));
  EXPECT_THAT(candidates("THE", script), ElementsAre("the")) << "answers are by the exact word";
}

TEST(Candidates, ComeFromCompletionsThenGuessesThenEdits) {
  const Script script{
      {"tehran", "the", "tea", "ten"}, {{"teh", {"the", "ten"}}}, {{"teh", {"tehran", "the"}}}};
  EXPECT_THAT(candidates("teh", script), ElementsAre("tehran", "the", "ten"));
  EXPECT_THAT(candidates("tez", script), ElementsAre("tea"));
}

TEST(Candidates, TryInsertedLettersInWordsOfUpToEight) {
  EXPECT_THAT(candidates("elephnt", {{"elephant"}, {}, {}}), ElementsAre("elephant"));
  EXPECT_THAT(candidates("elphants", {{"elephants", "selphants"}, {}, {}}),
              ElementsAre("selphants", "elephants"));
  EXPECT_THAT(candidates("catrpillar", {{"caterpillar"}, {}, {}}), IsEmpty());
  EXPECT_THAT(candidates("x", {{"xa", "z"}, {}, {}}), IsEmpty()) << "one letter is too short";
}

TEST(Candidates, TryVowelPairsInWordsOfUpToSixWithoutVowels) {
  EXPECT_THAT(candidates("bk", {{"book", "bake", "aabk", "bkei"}, {}, {}}),
              ElementsAre("aabk", "bake", "book", "bkei"));
  EXPECT_THAT(candidates("bzkxbz", {{"bazkixbz"}, {}, {}}), ElementsAre("bazkixbz"));
  EXPECT_THAT(candidates("bzkxbzk", {{"bazkixbzk"}, {}, {}}), IsEmpty());
  EXPECT_THAT(candidates("bka", {{"bookza", "bookaa"}, {}, {}}), IsEmpty());
}

TEST(Candidates, NeverEndInAPossessive) {
  const Script script{{"bob's", "bobs", "bob"}, {{"bob's", {"Bob'S", "Bob"}}}, {}};
  EXPECT_THAT(candidates("bob's", script), ElementsAre("Bob"));
  EXPECT_THAT(candidates("bob's", script, {"bob's"}), ElementsAre("Bob"));
}

TEST(Candidates, LeaveOutWhatMayNotBeSuggestedUnlessItWasTypedOrIsAllowed) {
  const Script script{{"damn"}, {}, {}};
  const WithoutSuggestingDamn spellChecker(script);
  for (const char* word : {"dajn", "dam", "daamn"}) {
    EXPECT_THAT(candidates(word, script), ElementsAre("damn")) << word;
    EXPECT_THAT(candidates(word, spellChecker), IsEmpty()) << word;
    EXPECT_THAT(candidates(word, spellChecker, {"damn"}), ElementsAre("damn")) << word;
  }
  EXPECT_THAT(candidates("Damn", spellChecker), ElementsAre("damn"));
}

TEST(Candidates, AreOnlyMadeForAsciiLettersAndApostrophes) {
  const Script script{{"a", "café", "e-mail", "a1"}, {}, {{"café", {"a"}}, {"e-mail", {"a"}}}};
  for (const char* word : {"", "café", "cafe\u0301", "e-mail", "a1", "a b", "a’s", "😀"}) {
    EXPECT_THAT(candidates(word, script), IsEmpty()) << word;
  }
}

TEST(Candidates, OfAnAllowedWordStartWithItAndHoldNoOtherCapitalsOfIt) {
  const Script script{{"mirror"}, {{"MirvA", {"MIRVA", "mirror", "Mirva"}}}, {}};
  EXPECT_THAT(candidates("MirvA", script, {"mIrva"}), ElementsAre("mirva", "mirror"));
  EXPECT_THAT(candidates("mirbor", script, {"mirvor"}), ElementsAre("mirvor"))
      << "an allowed word is a candidate of others";
}

}  // namespace
}  // namespace mirvane
