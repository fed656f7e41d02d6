#include "language/typed_word.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "language/guess_search.h"
#include "language/word_scan.h"
#include "language/word_trie.h"

namespace mirvane {
namespace {

constexpr int noLimit = 100000;

int distance(std::string_view typed, std::string_view meant) {
  return TypedWord(typed).distanceTo(meant, noLimit);
}

TEST(TypedWord, FindsLikelierSlipsCheaper) {
  const std::vector<std::pair<int, int>> cheaperFirst{
      {distance("cat", "cat"), distance("cst", "cat")},
      {distance("cst", "cat"), distance("cpt", "cat")},            // a neighbouring key
      {distance("cet", "cat"), distance("cpt", "cat")},            // another vowel
      {distance("teh", "the"), distance("tge", "the")},            // a swap
      {distance("helllo", "hello"), distance("helolo", "hello")},  // a letter held too long
      {distance("leter", "letter"), distance("lettr", "letter")},  // a double letter typed once
      {distance("dont", "don't"), distance("dont", "donut")},      // an apostrophe left out
      {distance("matn", "main"), distance("tain", "main")},        // not the first letter
  };
  for (std::size_t i = 0; i < cheaperFirst.size(); ++i) {
    EXPECT_LT(cheaperFirst[i].first, cheaperFirst[i].second) << "row " << i;
  }
}

TEST(TypedWord, IsAtNoDistanceFromItself) {
  EXPECT_EQ(distance("stella", "stella"), 0);
  EXPECT_EQ(distance("don't", "don't"), 0);
}

std::string randomWord(std::mt19937& random, std::size_t longest) {
  std::string word(1 + random() % longest, ' ');
  for (char& letter : word) letter = "abcdehst"[random() % 8];
  return word;
}

TEST(TypedWord, SaysMoreThanTheLimitExactlyWhenItIs) {
  std::mt19937 random(7);
  for (int i = 0; i < 20000; ++i) {
    const std::string typed = randomWord(random, 9);
    const std::string meant = randomWord(random, 9);
    const int whole = distance(typed, meant);
    const int limit = static_cast<int>(random() % 400);
    const int limited = TypedWord(typed).distanceTo(meant, limit);
    if (whole <= limit) {
      EXPECT_EQ(limited, whole) << typed << " " << meant;
    } else {
      EXPECT_GT(limited, limit) << typed << " " << meant;
    }
  }
}

class NearestWords : public testing::Test {
 protected:
  NearestWords() {
    std::mt19937 random(11);
    for (int i = 0; i < 3000; ++i) {
      const auto frequency = static_cast<WordTrie::Frequency>(1 + random() % 255);
      words_.emplace_back(randomWord(random, 8), frequency);
    }
    std::ranges::sort(words_, {}, &Word::first);
    const auto isSame = [](const Word& a, const Word& b) { return a.first == b.first; };
    words_.erase(std::unique(words_.begin(), words_.end(), isSame), words_.end());
    nodes_ = layOutWordTrie(words_);
    ranked_ = layOutRankedWords(words_);
  }

  using Word = std::pair<std::string, WordTrie::Frequency>;

  int lowestCost(std::string_view typed) const {
    const TypedWord typedWord(typed);
    int lowest = std::numeric_limits<int>::max();
    for (const auto& [word, frequency] : words_) {
      lowest =
          std::min(lowest, typedWord.distanceTo(word, noLimit) + typing_cost::rarity(frequency));
    }
    return lowest;
  }

  // What a data file holds of a part: its count and its elements.
  template <typename Container>
  static void append(std::string& payload, const Container& part) {
    const std::uint64_t count = part.size();
    payload.append(reinterpret_cast<const char*>(&count), sizeof(count));
    payload.append(reinterpret_cast<const char*>(part.data()), count * sizeof(part[0]));
    payload.resize((payload.size() + 7) / 8 * 8);
  }

  std::vector<Word> words_;
  std::vector<WordTrie::Node> nodes_;
  RankedWordsParts ranked_;
};

TEST_F(NearestWords, AreNoFartherThanALookAtEveryWordFinds) {
  std::string trieBytes;
  append(trieBytes, nodes_);
  std::string rankedBytes;
  append(rankedBytes, ranked_.counts);
  append(rankedBytes, ranked_.letters);
  append(rankedBytes, ranked_.frequencies);
  append(rankedBytes, ranked_.text);
  PayloadReader triePayload(std::as_bytes(std::span(trieBytes)));
  PayloadReader rankedPayload(std::as_bytes(std::span(rankedBytes)));
  const auto trie = WordTrie::read(triePayload);
  const auto ranked = RankedWords::read(rankedPayload);
  ASSERT_TRUE(trie && ranked);
  const GuessLimits limits{.words = 8, .window = 40, .highestCost = 330, .steps = 100000};
  std::mt19937 random(13);
  for (int i = 0; i < 1000; ++i) {
    const std::string typed = randomWord(random, 10);
    const auto nearest = nearestWords(*trie, *ranked, typed, limits);
    const int lowest = lowestCost(typed);
    if (lowest > limits.highestCost) continue;
    ASSERT_FALSE(nearest.empty()) << typed;
    EXPECT_EQ(nearest.front().cost, lowest) << typed << " " << nearest.front().word;
    EXPECT_TRUE(std::ranges::is_sorted(nearest, {}, &Guess::cost)) << typed;
    EXPECT_LE(nearest.back().cost, lowest + limits.window) << typed;
  }
}

}  // namespace
}  // namespace mirvane
