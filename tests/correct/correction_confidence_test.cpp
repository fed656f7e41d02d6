#include "correct/correction_confidence.h"

#include <gtest/gtest.h>

#include "model/user_settings.h"
#include "platform/simulated/in_memory_user_defaults.h"
#include "platform/simulated/in_memory_workspace.h"
#include "platform/simulated/scripted_spell_checker.h"

namespace mirvane {
namespace {

class Confidence : public testing::Test {
 protected:
  Confidence() {
    config.nearbyKeyProbabilities = {{"r", {{"t", 0.1}, {"w", 0.3}, {"x", -0.4}}}};
    settings.setAllowList({"Rho", "tho"});
  }

  simulated::ScriptedSpellChecker spellChecker{
      {{"the", "whe", "xhe", "she", "hello", "café"}, {}, {}}};
  simulated::InMemoryUserDefaults defaults;
  simulated::InMemoryWorkspace workspace;
  UserSettings settings{defaults, workspace};
  TypingConfig config;
};

TEST_F(Confidence, DependsOnTheKindOfError) {
  const struct {
    const char *typed, *candidate;
    double confidence;
  } rows[] = {
      {"rhe", "the", 0.7},        // neighbouring key
      {"rhe", "whe", 1.0},        // 1.1 at most 1
      {"rhe", "xhe", 0},          // -0.3 at least 0
      {"rhe", "she", 0.5},        // no entry in the table
      {"RHE", "The", 0.7},        // letter case does not count
      {"rho", "tho", 0},          // the typed word is allowed
      {"uho", "tho", 0},          // the dictionary rejects it, allowed or not
      {"teh", "the", 0},          // two letters changed
      {"helllo", "hello", 0.95},  // a key pressed three times
      {"heello", "hello", 0.85},  // one letter too many
      {"helo", "hello", 0.85},    // one letter missing
      {"helooo", "helo", 0},      // not a known word
      {"hello", "helo", 0},       // the typed word is known
      {"thoo", "tho", 0.85},      // allowed words are known here
      {"caf", "café", 0.85},      // characters, not bytes
      {"cafè", "cafe\u0301", 0},  // one substitution into a spelling the dictionary does not hold
      {"cafè", "café", 0.5},      //
      {"", "the", 0},             //
      {"the", "", 0},             //
  };
  const KnownWords knownWords(spellChecker, settings);
  const NearbyKeys nearbyKeys(config);
  for (const auto& [typed, candidate, confidence] : rows) {
    EXPECT_DOUBLE_EQ(correctionConfidence(typed, candidate, knownWords, nearbyKeys), confidence)
        << typed << ' ' << candidate;
  }
}

}  // namespace
}  // namespace mirvane
