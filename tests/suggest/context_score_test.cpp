#include "suggest/context_score.h"

#include <gtest/gtest.h>

#include <map>

#include "support/scripted_english.h"

namespace mirvane {
namespace {

using enum LexicalClass;

EnglishScript script() {
  return {.distances = {{"cat|dog", 0.5},
                        {"pet|cat", 0.7},
                        {"cat|same", 0},
                        {"cat|far", 2},
                        {"cat|near", 0.1},
                        {"cat|unlike", 1.5}},
          .tags = {{"Cat", noun},
                   {"big", adjective},
                   {"runs", verb},
                   {"the", determiner},
                   {"she", pronoun},
                   {"of", preposition},
                   {"well", other}},
          .unigrams = {{"the", 0.5}, {"café", 1}},
          .bigrams = {{"to the", 1.0}, {"the cat", 0.4}}};
}

class ContextFeatures : public testing::Test {
 protected:
  double embedding(std::vector<std::string> surroundingWords) const {
    ContextSignals context;
    context.surroundingWords = std::move(surroundingWords);
    return score.embeddingScore("Cat", context);
  }

  ScriptedEnglish english{script()};
  ContextScore score{english.services().vocabulary, english.services().embedding,
                     english.services().tagger};
};

TEST_F(ContextFeatures, LookWordsAndPairsUpInLowerCase) {
  EXPECT_DOUBLE_EQ(score.unigramScore("The"), 0.3);
  EXPECT_DOUBLE_EQ(score.unigramScore("CAFE\u0301"), 0.6);
  EXPECT_EQ(score.unigramScore("unheard"), 0);
  EXPECT_DOUBLE_EQ(score.bigramScore("the", {"To", std::nullopt, {}, {}}), 0.8);
  EXPECT_DOUBLE_EQ(score.bigramScore("the", {std::nullopt, "CAT", {}, {}}), 0.2);
  EXPECT_DOUBLE_EQ(score.bigramScore("THE", {"to", "cat", {}, {}}), 1.0);
  EXPECT_EQ(score.bigramScore("the", {"cat", "to", {}, {}}), 0);
}

TEST_F(ContextFeatures, FitThePartOfSpeechBehindThePreviousWord) {
  const std::map<LexicalClass, std::map<LexicalClass, double>> fits{
      {determiner, {{noun, 0.4}, {adjective, 0.4}}},
      {pronoun, {{verb, 0.4}}},
      {preposition, {{noun, 0.4}, {determiner, 0.4}}},
      {verb, {{determiner, 0.3}, {noun, 0.3}, {pronoun, 0.3}}},
      {adjective, {{noun, 0.4}}},
      {noun, {}},
      {other, {}}};
  for (const auto& [previous, row] : fits) {
    for (const auto& [word, tag] : script().tags) {
      const double expected = row.contains(tag) ? row.at(tag) : 0;
      EXPECT_EQ(score.posScore(word, {{}, {}, {}, previous}), expected) << word;
    }
  }
  EXPECT_EQ(score.posScore("cat", {{}, {}, {}, determiner}), 0) << "asked for the word as typed";
  EXPECT_EQ(score.posScore("Cat", {}), 0);
}

TEST_F(ContextFeatures, MeasureClosenessByTheMeanOfTheKnownDistances) {
  EXPECT_DOUBLE_EQ(embedding({"dog", "pet"}), 0.24);
  EXPECT_DOUBLE_EQ(embedding({"near"}), 0.54);
  EXPECT_DOUBLE_EQ(embedding({"same", "dog", "far", "unheard"}), 0.3);
  EXPECT_EQ(embedding({"unlike"}), 0) << "never negative";
  EXPECT_EQ(embedding({"same", "far"}), 0);
  EXPECT_EQ(embedding({}), 0);
}

TEST_F(ContextFeatures, AddUpAndDoWithoutAnEmbedding) {
  const ContextSignals context{"to", std::nullopt, {"dog"}, preposition};
  EXPECT_DOUBLE_EQ(score.contextScore("the", context), 0.3 + 0.8 + 0.4);
  const ContextScore without(english.services().vocabulary, nullptr, english.services().tagger);
  EXPECT_EQ(without.embeddingScore("cat", context), 0);
  EXPECT_DOUBLE_EQ(score.embeddingScore("cat", context), 0.3);
}

}  // namespace
}  // namespace mirvane
