#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "language/guess_selection.h"
#include "platform/simulated/in_memory_user_defaults.h"
#include "platform/simulated/in_memory_workspace.h"
#include "suggest/suggestion_engine.h"
#include "support/shipped_resources.h"

namespace mirvane {
namespace {

// The dictionary chooses its guesses by what the ranking will make of them.
TEST(GuessLikeness, IsWhatTheRankingGivesTheTexts) {
  ShippedResources shipped;
  simulated::InMemoryUserDefaults defaults;
  simulated::InMemoryWorkspace workspace;
  const UserSettings settings(defaults, workspace);
  const SuggestionEngine engine(shipped.typingConfig(), settings, shipped.language());
  const std::vector<std::pair<std::string, std::string>> rows{
      {"stroe", "store"},     // a swap
      {"lettre", "letter"},   // a swap at the end
      {"leter", "letter"},    // a double letter typed once
      {"brwn", "brown"},      // a left-out vowel
      {"beown", "brown"},     // a neighbouring key
      {"unluck", "unlucky"},  // only the beginning
      {"brpwn", "brawn"},     // a common beginning
      {"xqzt", "store"}};     // nothing in common
  for (const auto& [typed, word] : rows) {
    const SuggestionPriority::RankedWord ranked(typed, engine.knownWords);
    EXPECT_DOUBLE_EQ(likeness(typed, word),
                     engine.suggestionPriority.suggestionScore(ranked, word, nullptr, nullptr))
        << typed << ' ' << word;
  }
}

}  // namespace
}  // namespace mirvane
