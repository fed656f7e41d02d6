#include "suggest/vocabulary_table.h"

#include <gtest/gtest.h>

#include "platform/simulated/in_memory_bundle.h"

namespace mirvane {
namespace {

constexpr const char* folder = "Vocabulary/words.json";
constexpr const char* topLevel = "words.json";

VocabularyTable loadedFrom(const std::string& json) {
  simulated::InMemoryBundle bundle;
  bundle.add(folder, json);
  return loadVocabularyTable(bundle, "words");
}

TEST(VocabularyTable, MapsWordsToWeights) {
  const auto table = loadedFrom(R"({"the": 1.5, "of the": 2, "low": -0.25, "caf\u00e9": 3})");
  EXPECT_EQ(table.size(), 4U);
  EXPECT_EQ(table.weight("the"), 1.5);
  EXPECT_EQ(table.weight("of the"), 2);
  EXPECT_EQ(table.weight("low"), -0.25);
  EXPECT_EQ(table.weight("cafe\u0301"), 3);
  EXPECT_EQ(table.weight("The"), 0);
  EXPECT_EQ(table.weight(""), 0);
}

TEST(VocabularyTable, IsEmptyUnlessTheResourceIsAnObjectOfNumbers) {
  for (const char* json :
       {"", "{", "[1]", "5", "null", R"({"a": 1, "b": true})", R"({"a": 1, "b": "2"})",
        R"({"a": 1, "b": null})", R"({"a": {}})", R"({"": true})", R"({"a": 1)", R"({"a": 1} 2)",
        R"({"a": 1}})", R"({"a": 1 "b": 2})", R"({"a": 1, "b"})", R"({"a": 1x})",
        "{\"a\xff\": 1}"}) {
    EXPECT_EQ(loadedFrom(json).size(), 0U) << json;
    EXPECT_EQ(loadedFrom(json).weight("a"), 0) << json;
  }
  EXPECT_EQ(loadedFrom("{}").weight("a"), 0);
}

TEST(VocabularyTable, IsLookedForInTheFolderAndThenAtTheTopLevel) {
  simulated::InMemoryBundle bundle;
  EXPECT_EQ(loadVocabularyTable(bundle, "words").size(), 0U);
  bundle.add(topLevel, R"({"a": 1})");
  EXPECT_EQ(loadVocabularyTable(bundle, "words").weight("a"), 1);
  bundle.add(folder, R"({"a": 2})");
  EXPECT_EQ(loadVocabularyTable(bundle, "words").weight("a"), 2);
}

TEST(VocabularyTable, KeepsEveryEntryWhileItGrows) {
  VocabularyTable table;
  table.reserve(10);
  for (int i = 0; i < 5000; ++i) table.insert("word" + std::to_string(i), i);
  table.insert("word7", 0.5);
  table.reserve(0);
  EXPECT_EQ(table.size(), 5000U);
  for (int i = 8; i < 5000; ++i) ASSERT_EQ(table.weight("word" + std::to_string(i)), i);
  EXPECT_EQ(table.weight("word7"), 0.5);
  EXPECT_EQ(table.weight("word5000"), 0);
}

}  // namespace
}  // namespace mirvane
