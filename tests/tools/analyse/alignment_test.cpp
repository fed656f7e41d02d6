#include "analyse/alignment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <utility>

#include "analyse/word_alignment.h"

namespace mirvane {
namespace {

/// The definition as textbooks have it, without a table: the distance of two texts is that of what
/// remains when each of the three edits is made at the front.
class Definition {
 public:
  std::size_t distance(const std::string& a, const std::string& b) {
    if (a.empty() || b.empty()) return std::max(a.size(), b.size());
    const auto known = known_.find({a, b});
    if (known != known_.end()) return known->second;
    const auto restA = a.substr(1);
    const auto restB = b.substr(1);
    const auto result = std::min({distance(restA, restB) + (a[0] == b[0] ? 0U : 1U),
                                  distance(restA, b) + 1U, distance(a, restB) + 1U});
    known_[{a, b}] = result;
    return result;
  }

 private:
  std::map<std::pair<std::string, std::string>, std::size_t> known_;
};

class RandomTexts {
 public:
  std::string next(std::size_t longest, std::string_view letters = "aab c") {
    std::string text(random_() % (longest + 1), ' ');
    for (auto& letter : text) letter = letters[random_() % letters.size()];
    return text;
  }

 private:
  std::mt19937 random_{20261123};
};

/// Every character of both texts once and in order; the slips of the alignment.
std::size_t slipsOf(const std::vector<AlignedPair>& pairs, const std::string& meant,
                    const std::string& typed) {
  std::size_t slips = 0;
  std::string allMeant, allTyped;
  for (const auto& pair : pairs) {
    if (pair.meant) allMeant += meant.at(*pair.meant);
    if (pair.typed) allTyped += typed.at(*pair.typed);
    const bool isMatch = pair.meant && pair.typed && meant[*pair.meant] == typed[*pair.typed];
    slips += isMatch ? 0 : 1;
  }
  EXPECT_EQ(allMeant, meant);
  EXPECT_EQ(allTyped, typed);
  return slips;
}

/// The two texts one above the other, as the papers print alignments.
std::string shown(const std::string& meant, const std::string& typed) {
  std::string above, below;
  for (const auto& pair : align(symbolsOf(meant), symbolsOf(typed))) {
    above += pair.meant ? meant.at(*pair.meant) : '-';
    below += pair.typed ? typed.at(*pair.typed) : '-';
  }
  return above + '/' + below;
}

TEST(MinimumStringDistance, IsAsPublished) {
  struct Row {
    const char* a;
    const char* b;
    std::size_t distance;
  };
  const Row rows[] = {
      {"", "", 0},
      {"abc", "", 3},
      {"kitten", "sitting", 3},        // the usual example of the Levenshtein distance
      {"saturday", "sunday", 3},       // another
      {"quickly", "qucehkly", 3},      // MacKenzie & Soukoreff (2002)
      {"abcd", "acbd", 2},             // Soukoreff & MacKenzie (2001)
      {"caf\u00e9", "cafe\u0301", 0},  // canonically equivalent
      {"na\u00efve", "naive", 1},
      {"The", "the", 1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.a) + " and " + row.b);
    EXPECT_EQ(minimumStringDistance(row.a, row.b), row.distance);
    EXPECT_EQ(minimumStringDistance(row.b, row.a), row.distance);
  }
}

TEST(MinimumStringDistance, AgreesWithTheDefinitionOnRandomTexts) {
  RandomTexts texts;
  for (int i = 0; i < 400; ++i) {
    const auto a = texts.next(9), b = texts.next(9);
    EXPECT_EQ(minimumStringDistance(a, b), Definition().distance(a, b)) << a << '|' << b;
  }
}

TEST(Alignment, HasNoMoreSlipsThanTheDistanceOnRandomTexts) {
  RandomTexts texts;
  for (int i = 0; i < 400; ++i) {
    const auto meant = texts.next(9), typed = texts.next(9);
    const auto pairs = align(symbolsOf(meant), symbolsOf(typed));
    EXPECT_EQ(slipsOf(pairs, meant, typed), Definition().distance(meant, typed))
        << meant << '|' << typed;
  }
}

TEST(Alignment, OfABeginningFitsTheBestBeginning) {
  RandomTexts texts;
  for (int i = 0; i < 300; ++i) {
    const auto meant = texts.next(9), typed = texts.next(6);
    const auto pairs = alignWithBeginning(symbolsOf(meant), symbolsOf(typed));
    const auto used = static_cast<std::size_t>(std::count_if(
        pairs.begin(), pairs.end(), [](const AlignedPair& pair) { return pair.meant; }));
    std::size_t least = typed.size();
    for (std::size_t end = 0; end <= meant.size(); ++end) {
      least = std::min(least, Definition().distance(meant.substr(0, end), typed));
    }
    EXPECT_EQ(slipsOf(pairs, meant.substr(0, used), typed), least) << meant << '|' << typed;
  }
}

TEST(Alignment, ChoosesWhatFingersDo) {
  EXPECT_EQ(shown("the", "thhe"), "th-e/thhe");
  EXPECT_EQ(shown("sells", "selllls"), "sell--s/selllls");
  EXPECT_EQ(shown("the", "teh"), "the/teh");
  EXPECT_EQ(shown("brown fox", "brwn fox"), "brown fox/br-wn fox");
  EXPECT_EQ(shown("quick", "quixck"), "qui-ck/quixck");
}

TEST(Alignment, RefusesWhatWouldFillTheMemory) {
  const Symbols longText(100000, 'a');
  EXPECT_THROW(static_cast<void>(align(longText, longText)), std::runtime_error);
}

/// Alignment of words by its definition: every way to pair them.
class WordDefinition {
 public:
  WordDefinition(std::vector<StudyWord> meant, std::vector<StudyWord> typed)
      : meant_(std::move(meant)), typed_(std::move(typed)) {}

  std::size_t cost(std::size_t i = 0, std::size_t j = 0) {
    if (i == meant_.size() && j == typed_.size()) return 0;
    std::size_t best = SIZE_MAX;
    for (std::size_t m = 0; m <= 2 && i + m <= meant_.size(); ++m) {
      for (std::size_t t = 0; t <= 2 && j + t <= typed_.size(); ++t) {
        if (m + t == 0 || m + t == 4 || (m + t == 2 && m != t)) continue;
        best = std::min(best, costOf(i, m, j, t) + cost(i + m, j + t));
      }
    }
    return best;
  }

  std::size_t costOf(const WordPair& pair) {
    return costOf(pair.firstMeant, pair.meantCount, pair.firstTyped, pair.typedCount);
  }

 private:
  std::size_t costOf(std::size_t i, std::size_t m, std::size_t j, std::size_t t) {
    const auto meant = joined(meant_, i, m), typed = joined(typed_, j, t);
    return Definition().distance(meant, typed) + (m + t == 3 ? 1U : 0U);
  }
  static std::string joined(const std::vector<StudyWord>& words, std::size_t first,
                            std::size_t count) {
    std::string text;
    for (std::size_t i = first; i < first + count; ++i) text += words[i].normalized;
    return text;
  }

  std::vector<StudyWord> meant_, typed_;
};

TEST(WordAlignment, CostsNoMoreThanAnyOtherOnRandomTexts) {
  RandomTexts texts;
  for (int i = 0; i < 150; ++i) {
    const auto meant = studyWords(texts.next(12, "ab  ")),
               typed = studyWords(texts.next(12, "ab  "));
    WordDefinition definition(meant, typed);
    std::size_t cost = 0, nextMeant = 0, nextTyped = 0;
    for (const auto& pair : alignWords(meant, typed)) {
      EXPECT_EQ(std::exchange(nextMeant, pair.firstMeant + pair.meantCount), pair.firstMeant);
      EXPECT_EQ(std::exchange(nextTyped, pair.firstTyped + pair.typedCount), pair.firstTyped);
      cost += definition.costOf(pair);
    }
    EXPECT_EQ(nextMeant, meant.size());
    EXPECT_EQ(nextTyped, typed.size());
    EXPECT_EQ(cost, definition.cost());
  }
}

TEST(WordAlignment, FindsWordsLeftOutRunTogetherAndTakenApart) {
  struct Row {
    const char* meant;
    const char* typed;
    std::vector<WordPair> pairs;
  };
  const Row rows[] = {
      {"the lazy dog", "the dog", {{0, 1, 0, 1}, {1, 1, 1, 0}, {2, 1, 1, 1}}},
      {"ask her to bring",
       "ask to bring",
       {{0, 1, 0, 1}, {1, 1, 1, 0}, {2, 1, 1, 1}, {3, 1, 2, 1}}},
      {"the quick fox", "thequick fox", {{0, 2, 0, 1}, {2, 1, 1, 1}}},
      {"every morning", "every mor ning", {{0, 1, 0, 1}, {1, 1, 1, 2}}},
      {"dog. She sells", "DOG She seels", {{0, 1, 0, 1}, {1, 1, 1, 1}, {2, 1, 2, 1}}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(alignWords(studyWords(row.meant), studyWords(row.typed)), row.pairs) << row.typed;
  }
  const std::vector<WordPair> beginning{{0, 1, 0, 1}, {1, 1, 1, 1}};
  EXPECT_EQ(
      alignWords(studyWords("the quick brown fox"), studyWords("the quikc"), Prompt::beginning),
      beginning);
}

}  // namespace
}  // namespace mirvane
