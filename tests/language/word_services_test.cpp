#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "language/mapped_word_embedding.h"
#include "language/word_tagger.h"
#include "packed_embedding.h"
#include "packed_tags.h"
#include "tests/language/temporary_file.h"

namespace mirvane {
namespace {

TEST(WordEmbedding, MeasuresCosineDistances) {
  std::istringstream lines("east 100 0\nnorth 0 50\nwest -7 0\nnortheast 30 30\n");
  const TemporaryFile file(packedEmbedding(lines));
  const auto embedding = MappedWordEmbedding::open(file.path());
  ASSERT_NE(embedding, nullptr);
  EXPECT_DOUBLE_EQ(embedding->distance("east", "north"), 1.0);
  EXPECT_DOUBLE_EQ(embedding->distance("east", "west"), 2.0);
  EXPECT_NEAR(embedding->distance("northeast", "east"), 1 - std::sqrt(0.5), 1e-6);
  EXPECT_DOUBLE_EQ(embedding->distance("northeast", "northeast"), 0.0);
  EXPECT_EQ(embedding->distance("east", "south"), 2.0);
  EXPECT_EQ(embedding->distance("south", "south"), 2.0);
  EXPECT_EQ(embedding->distance("", "east"), 2.0);
}

TEST(WordTagger, TagsInAnyLetterCase) {
  std::istringstream lines("dog 0\nrun 1\nred 2\nshe 3\nthe 4\nto 5\nquickly 6\n");
  const TemporaryFile file(packedTags(lines));
  const WordTagger tagger(file.path());
  EXPECT_EQ(tagger.tag("dog"), LexicalClass::noun);
  EXPECT_EQ(tagger.tag("RUN"), LexicalClass::verb);
  EXPECT_EQ(tagger.tag("Red"), LexicalClass::adjective);
  EXPECT_EQ(tagger.tag("she"), LexicalClass::pronoun);
  EXPECT_EQ(tagger.tag("The"), LexicalClass::determiner);
  EXPECT_EQ(tagger.tag("to"), LexicalClass::preposition);
  EXPECT_EQ(tagger.tag("quickly"), LexicalClass::other);
  EXPECT_EQ(tagger.tag("cat"), std::nullopt);
  EXPECT_EQ(tagger.tag(""), std::nullopt);
  EXPECT_EQ(tagger.tag(std::string(1000, 'a')), std::nullopt);
}

}  // namespace
}  // namespace mirvane
