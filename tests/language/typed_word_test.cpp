#include "language/typed_word.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "language/guess_search.h"
#include "language/word_trie.h"

namespace mirvane {
namespace {

int distance(std::string_view typed, std::string_view meant, Reading reading) {
  const TypedWord typedWord(typed, reading);
  std::vector<TypedWord::Row> rows(meant.size() + 1);
  typedWord.fillFirstRow(rows[0]);
  char before = '\0';
  for (std::size_t m = 0; m < meant.size(); ++m) {
    const char letter = reading == Reading::forward ? meant[m] : meant[meant.size() - 1 - m];
    typedWord.fillRow(rows[m + 1], rows[m], rows[m > 0 ? m - 1 : 0], letter, before);
    before = letter;
  }
  return rows.back()[typed.size()];
}

int distance(std::string_view typed, std::string_view meant) {
  return distance(typed, meant, Reading::forward);
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

std::string withoutDoubles(std::string word) {
  word.erase(std::unique(word.begin(), word.end()), word.end());
  return word;
}

TEST(TypedWord, IsAsFarAwayReadBackward) {
  std::mt19937 random(7);
  for (int i = 0; i < 20000; ++i) {
    const std::string typed = randomWord(random, 20);
    const std::string meant = withoutDoubles(randomWord(random, 9));
    EXPECT_EQ(distance(typed, meant, Reading::backward), distance(typed, meant))
        << typed << " " << meant;
  }
}

class NearestWords : public testing::Test {
 protected:
  NearestWords() {
    std::mt19937 random(11);
    for (int i = 0; i < 3000; ++i) {
      const auto frequency = static_cast<WordTrie::Frequency>(1 + random() % 255);
      words_.emplace_back(withoutDoubles(randomWord(random, 9)), frequency);
    }
    std::ranges::sort(words_, {}, &Word::first);
    const auto isSame = [](const Word& a, const Word& b) { return a.first == b.first; };
    words_.erase(std::unique(words_.begin(), words_.end(), isSame), words_.end());
    forward_ = bytesOfTrie(words_);
    std::vector<Word> reversed = words_;
    for (auto& [word, frequency] : reversed) std::ranges::reverse(word);
    std::ranges::sort(reversed);
    backward_ = bytesOfTrie(reversed);
  }

  using Word = std::pair<std::string, WordTrie::Frequency>;

  // What a look at every word finds.
  std::vector<Guess> nearestOfAll(std::string_view typed, const GuessLimits& limits) const {
    std::vector<Guess> all;
    for (const auto& [word, frequency] : words_) {
      const int slips = distance(typed, word);
      if (slips > limits.costliestSlips) continue;
      all.push_back({word, slips + typing_cost::rarity(frequency)});
    }
    if (all.empty()) return all;
    std::ranges::sort(all, {}, [](const Guess& guess) { return std::tie(guess.cost, guess.word); });
    const int highest = std::min(all.front().cost + limits.window, limits.highestCost);
    std::erase_if(all, [&](const Guess& guess) { return guess.cost > highest; });
    all.resize(std::min(all.size(), limits.words));
    return all;
  }

  // What a data file holds of a trie: of each part the count of its elements and these.
  static std::string bytesOfTrie(std::span<const Word> words) {
    const WordTrieParts parts = layOutWordTrie(words);
    std::string bytes;
    append(bytes, std::as_bytes(std::span(parts.nodes)), parts.nodes.size());
    append(bytes, std::as_bytes(std::span(parts.frequencies)), parts.frequencies.size());
    return bytes;
  }

  static void append(std::string& bytes, std::span<const std::byte> part, std::uint64_t count) {
    bytes.append(reinterpret_cast<const char*>(&count), sizeof(count));
    bytes.append(reinterpret_cast<const char*>(part.data()), part.size());
    bytes.resize((bytes.size() + 7) / 8 * 8);
  }

  static std::optional<WordTrie> trieOf(const std::string& bytes) {
    PayloadReader payload(std::as_bytes(std::span(bytes)));
    return WordTrie::read(payload);
  }

  std::vector<Word> words_;
  std::string forward_, backward_;
};

TEST_F(NearestWords, AreThoseThatALookAtEveryWordFinds) {
  const auto forward = trieOf(forward_), backward = trieOf(backward_);
  ASSERT_TRUE(forward && backward);
  const GuessLimits limits{.words = 8, .window = 40, .highestCost = 330, .costliestSlips = 230};
  std::mt19937 random(13);
  for (int i = 0; i < 300; ++i) {
    const std::string typed = randomWord(random, 12);
    const auto found = nearestWords(*forward, *backward, typed, limits);
    const auto expected = nearestOfAll(typed, limits);
    ASSERT_EQ(found.size(), expected.size()) << typed;
    for (std::size_t k = 0; k < found.size(); ++k) {
      EXPECT_EQ(found[k].word, expected[k].word) << typed;
      EXPECT_EQ(found[k].cost, expected[k].cost) << typed << " " << found[k].word;
    }
  }
}

}  // namespace
}  // namespace mirvane
