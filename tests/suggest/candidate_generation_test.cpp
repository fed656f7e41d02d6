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

TEST(RepeatCollapseVariants, CombineUpToEightChoices) {
  const auto variants = repeatCollapseVariants("aabbhhiikkuuwwyy");
  ASSERT_EQ(variants.size(), 256U);  // the word is one of them
  EXPECT_EQ(variants[1], "abhikuwy");
  EXPECT_EQ(variants[2], "abhikuwyy");
  EXPECT_EQ(variants[128], "abbhhiikkuuwwyy");
  EXPECT_EQ(variants[129], "aabhikuwy");
  EXPECT_EQ(variants.back(), "aabbhhiikkuuwwy");
  // Runs without a choice do not count.
  EXPECT_EQ(repeatCollapseVariants("aallbbeehhooiirrkkttuunnwwppyyy").size(), 257U);
}

TEST(RepeatCollapseVariants, AreOnlyTheExtremesWithMoreChoices) {
  EXPECT_THAT(repeatCollapseVariants("aabbhhiikkuuwwyyvv"),
              ElementsAre("aabbhhiikkuuwwyyvv", "abhikuwyv"));
  EXPECT_THAT(repeatCollapseVariants("aaabbhhiikkuuwwyyvveet"),
              ElementsAre("aaabbhhiikkuuwwyyvveet", "abhikuwyveet", "aabbhhiikkuuwwyyvveet"));
}

TEST(RepeatCollapseVariants, TakeAnyLengthOfWord) {
  std::string mashed, single, twice;
  while (mashed.size() < 500'000) {
    mashed += "xxxyyy";
    single += "xy";
    twice += "xxyy";
  }
  EXPECT_TRUE(repeatCollapseVariants(mashed) == Texts({mashed, single, twice}));
  EXPECT_THAT(repeatCollapseVariants(std::string(500'000, 'a')),
              ElementsAre(testing::SizeIs(500'000), "a", "aa"));
}

struct Row {
  const char* word;
  Script script;
  Texts candidates;
  Texts allowList = {};
};

TEST(Candidates, FollowTheirRules) {
  const Script the{{"the", "then", "The"}, {{"the", {"then"}}}, {{"the", {"The", "then"}}}};
  const Script teh{
      {"tehran", "the", "ten"}, {{"teh", {"the", "ten"}}}, {{"teh", {"tehran", "the"}}}};
  const Script bob{{"bob's", "bobs", "bob"}, {{"bob's", {"Bob'S", "Bob"}}}, {}};
  const Script mirror{{"mirror"}, {{"MirvA", {"MIRVA", "mirror", "Mirva"}}}, {}};
  const Row rows[] = {
      {"the", the, {"the", "The", "then"}},    // a known word leads, in lower case
      {"teh", teh, {"tehran", "the", "ten"}},  // completions, guesses, edits
      // Letters are inserted in words of up to eight,
      {"elphants", {{"elephants", "selphants"}, {}, {}}, {"selphants", "elephants"}},
      {"catrpillar", {{"caterpillar"}, {}, {}}, {}},
      // and pairs of vowels in words of up to six without vowels.
      {"bk", {{"book", "bake", "aabk", "bkei"}, {}, {}}, {"aabk", "bake", "book", "bkei"}},
      {"bzkxbz", {{"bazkixbz"}, {}, {}}, {"bazkixbz"}},
      {"bzkxbzk", {{"bazkixbzk"}, {}, {}}, {}},
      {"bob's", bob, {"Bob"}, {"bob's"}},                 // no possessive, allowed or not
      {"MirvA", mirror, {"mirva", "mirror"}, {"mIrva"}},  // an allowed word leads, only once
  };
  for (const auto& [word, script, expected, allowList] : rows) {
    EXPECT_EQ(candidates(word, simulated::ScriptedSpellChecker(script), allowList), expected)
        << word;
  }
}

TEST(Candidates, LeaveOutWhatMayNotBeSuggestedUnlessItWasTypedOrIsAllowed) {
  const WithoutSuggestingDamn spellChecker(Script{{"damn"}, {}, {}});
  for (const char* word : {"dajn", "dam", "daamn"}) {
    EXPECT_EQ(candidates(word, spellChecker), Texts{}) << word;
    EXPECT_EQ(candidates(word, spellChecker, {"damn"}), Texts{"damn"}) << word;
  }
  EXPECT_EQ(candidates("Damn", spellChecker), Texts{"damn"});
}

}  // namespace
}  // namespace mirvane
