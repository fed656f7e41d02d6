#include <gtest/gtest.h>

#include "platform/simulated/in_memory_bundle.h"
#include "platform/simulated/in_memory_user_defaults.h"
#include "platform/simulated/scripted_save_panel.h"
#include "platform/simulated/scripted_word_embedding.h"

namespace mirvane::simulated {
namespace {

TEST(ScriptedWordEmbedding, IsSymmetricAndFarWhereItKnowsNothing) {
  const ScriptedWordEmbedding embedding({{"cat|dog", 0.4}, {"no bar", 0.1}});
  EXPECT_EQ(embedding.distance("cat", "dog"), 0.4);
  EXPECT_EQ(embedding.distance("dog", "cat"), 0.4);
  EXPECT_EQ(embedding.distance("cat", "cow"), 2);
  EXPECT_EQ(embedding.distance("no bar", "no bar"), 2);
}

TEST(InMemoryBundle, TellsAMissingResourceFromAnUnreadableOne) {
  InMemoryBundle bundle;
  bundle.add("Vocabulary/words.json", "{}");
  bundle.addUnreadable("study.json");
  const auto words = bundle.pathForResource("words", "json", "Vocabulary");
  ASSERT_TRUE(words);
  EXPECT_EQ(bundle.contents(*words), "{}");
  EXPECT_FALSE(bundle.pathForResource("words", "json"));
  const auto study = bundle.pathForResource("study", "json");
  ASSERT_TRUE(study);
  EXPECT_EQ(bundle.contents(*study), std::nullopt);
  EXPECT_EQ(bundle.readCount("Vocabulary/words.json"), 1);
}

TEST(InMemoryUserDefaults, CountsWritesButNotPresets) {
  InMemoryUserDefaults defaults;
  defaults.preset("on", {true});
  EXPECT_EQ(defaults.object("on"), DefaultsValue{true});
  EXPECT_EQ(defaults.writeCount("on"), 0);
  defaults.set("on", {2.5});
  EXPECT_EQ(defaults.object("on"), DefaultsValue{2.5});
  EXPECT_EQ(defaults.writeCount("on"), 1);
  EXPECT_EQ(defaults.object("off"), std::nullopt);
}

TEST(ScriptedSavePanel, AnswersInOrderThenCancels) {
  ScriptedSavePanel panel;
  panel.answer("/tmp/report.txt");
  EXPECT_EQ(panel.run({.suggestedFileName = "a", .prompt = "", .message = ""}), "/tmp/report.txt");
  EXPECT_EQ(panel.run({.suggestedFileName = "b", .prompt = "", .message = ""}), std::nullopt);
  ASSERT_EQ(panel.shown().size(), 2U);
  EXPECT_EQ(panel.shown()[1].suggestedFileName, "b");
}

}  // namespace
}  // namespace mirvane::simulated
