#include <gtest/gtest.h>

#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <iterator>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "language/data_file.h"
#include "language/dictionary.h"
#include "language/english_language.h"
#include "language/mapped_word_embedding.h"
#include "language/word_tagger.h"
#include "packed_dictionary.h"
#include "packed_embedding.h"
#include "packed_tags.h"
#include "platform/simulated/in_memory_bundle.h"
#include "tests/language/temporary_file.h"

namespace mirvane {
namespace {

using Path = std::filesystem::path;

std::string packed(std::string (*pack)(std::istream&), const std::string& text) {
  std::istringstream lines(text);
  return pack(lines);
}

// A kind of data file: its bytes, and whether the service made from a file knows its word.
struct Kind {
  std::string name;
  DataFileKind fileKind;
  std::string bytes;
  std::function<bool(const Path&)> knows;

  [[nodiscard]] std::string payload() const { return bytes.substr(32); }
};

std::vector<Kind> kinds() {
  return {{"dictionary", Dictionary::fileKind, packed(packedDictionary, "hello 200\nhelp 100\n"),
           [](const Path& path) {
             const Dictionary dictionary(path);
             return dictionary.isCorrect("hello") || !dictionary.guesses("helo").empty() ||
                    !dictionary.completions("he").empty();
           }},
          {"tags", WordTagger::fileKind, packed(packedTags, "hello 0\n"),
           [](const Path& path) { return WordTagger(path).tag("hello").has_value(); }},
          {"embedding", MappedWordEmbedding::fileKind,
           packed(packedEmbedding, "hello 1 2\nhelp 2 1\n"), [](const Path& path) {
             const auto embedding = MappedWordEmbedding::open(path);
             return embedding != nullptr && embedding->distance("hello", "help") < 2;
           }}};
}

bool knowsFrom(const Kind& kind, const std::string& bytes) {
  const TemporaryFile file(bytes);
  return kind.knows(file.path());
}

TEST(DataFiles, AreUsedWhenWholeAndAreAsIfAbsentWhenMissingEmptyOrAFolder) {
  const TemporaryFile other("");
  for (const Kind& kind : kinds()) {
    EXPECT_TRUE(knowsFrom(kind, kind.bytes)) << kind.name;
    EXPECT_FALSE(kind.knows({})) << kind.name;
    EXPECT_FALSE(kind.knows(other.path() / "none")) << kind.name;
    EXPECT_FALSE(kind.knows(other.path().parent_path())) << kind.name;
    EXPECT_FALSE(knowsFrom(kind, "")) << kind.name;
  }
}

TEST(DataFiles, AreAsIfAbsentWhenCutAnywhere) {
  for (const Kind& kind : kinds()) {
    for (std::size_t size = 0; size < kind.bytes.size(); ++size) {
      EXPECT_FALSE(knowsFrom(kind, kind.bytes.substr(0, size))) << kind.name << " " << size;
    }
    EXPECT_FALSE(knowsFrom(kind, kind.bytes + '\0')) << kind.name << " with a byte too many";
  }
}

TEST(DataFiles, AreAsIfAbsentWhenAnyByteDiffers) {
  for (const Kind& kind : kinds()) {
    for (std::size_t i = 0; i < kind.bytes.size(); ++i) {
      std::string damaged = kind.bytes;
      damaged[i] = static_cast<char>(damaged[i] ^ 0x10);
      EXPECT_FALSE(knowsFrom(kind, damaged)) << kind.name << " byte " << i;
    }
  }
}

TEST(DataFiles, AreAsIfAbsentWhenOfAnotherKindOrVersion) {
  const auto all = kinds();
  for (const Kind& kind : all) {
    for (const Kind& other : all) {
      if (kind.name != other.name) {
        EXPECT_FALSE(knowsFrom(kind, other.bytes)) << kind.name << " from " << other.name;
      }
    }
  }
  DataFileKind next = all[1].fileKind;
  EXPECT_TRUE(knowsFrom(all[1], dataFileBytes(next, all[1].payload())));
  ++next.version;
  EXPECT_FALSE(knowsFrom(all[1], dataFileBytes(next, all[1].payload())));
}

// The checksum is right, but the parts do not fit together.
TEST(DataFiles, AreAsIfAbsentWhenTheirPartsDoNotFit) {
  for (const Kind& kind : kinds()) {
    const std::string payload = kind.payload();
    for (std::size_t size = 0; size < payload.size(); size += 8) {
      const std::string bytes = dataFileBytes(kind.fileKind, payload.substr(0, size));
      EXPECT_FALSE(knowsFrom(kind, bytes)) << kind.name << " " << size;
    }
    std::string endless = payload;
    endless.replace(0, 8, 8, '\xff');
    EXPECT_FALSE(knowsFrom(kind, dataFileBytes(kind.fileKind, endless))) << kind.name;
  }
}

// Asks a service made from a damaged file every question there is; whatever it answers, the
// dictionary offers only words of its letters.
void ask(const Path& path) {
  const Dictionary dictionary(path);
  auto offered = dictionary.guesses("helo");
  std::ranges::move(dictionary.completions("he"), std::back_inserter(offered));
  for (const std::string& word : offered) {
    EXPECT_EQ(word.find_first_not_of("abcdefghijklmnopqrstuvwxyz'"), std::string::npos) << word;
  }
  const WordTagger tagger(path);
  const auto embedding = MappedWordEmbedding::open(path);
  for (const char* word : {"hello", "help", "helo", "h", "he's", "unknown"}) {
    static_cast<void>(dictionary.isCorrect(word));
    static_cast<void>(dictionary.mayBeSuggested(word));
    EXPECT_LE(tagger.tag(word).value_or(LexicalClass::noun), LexicalClass::other);
    if (embedding == nullptr) continue;
    const double distance = embedding->distance(word, "help");
    EXPECT_TRUE(distance >= 0 && distance <= 2) << distance;
  }
}

void askDamaged(const DataFileKind& kind, const std::string& payload) {
  const TemporaryFile file(dataFileBytes(kind, payload));
  ask(file.path());
}

// The checksum is right, but what the parts say is not.
TEST(DataFiles, DoNoHarmWhenTheirWordsAreDamaged) {
  std::mt19937 random(17);
  for (const Kind& kind : kinds()) {
    const std::string payload = kind.payload();
    for (std::size_t i = 0; i < payload.size(); ++i) {
      for (const char change : {'\x01', '\x10', '\xff'}) {
        std::string damaged = payload;
        damaged[i] = static_cast<char>(damaged[i] ^ change);
        askDamaged(kind.fileKind, damaged);
      }
    }
    for (int round = 0; round < 3000; ++round) {
      std::string damaged = payload;
      for (std::size_t bytes = 2 + random() % 8; bytes > 0; --bytes) {
        damaged[random() % damaged.size()] = static_cast<char>(random());
      }
      askDamaged(kind.fileKind, damaged);
    }
  }
}

TEST(DataFiles, AreAsIfAbsentWhenASearchInThemWouldNotEnd) {
  std::string payload = kinds()[0].payload();
  const std::size_t slots = static_cast<unsigned char>(payload[0]);
  for (std::size_t i = 0; i < slots; ++i) payload[8 + 4 * i + 3] = '\x7f';
  const TemporaryFile file(dataFileBytes(Dictionary::fileKind, payload));
  EXPECT_FALSE(Dictionary(file.path()).isCorrect("unknown"));
}

TEST(DataFiles, AreAsIfAbsentWhenAWordHasNoDirection) {
  const std::string bytes = kinds()[2].bytes;
  const float lengthOfBoth = std::sqrt(5.0F);
  std::string length(sizeof(float), '\0');
  std::memcpy(length.data(), &lengthOfBoth, sizeof(float));
  const std::size_t at = bytes.find(length);
  ASSERT_NE(at, std::string::npos);
  for (const float damaged : {0.0F, -1.0F, std::numeric_limits<float>::quiet_NaN()}) {
    std::string payload = bytes;
    std::memcpy(payload.data() + at, &damaged, sizeof(float));
    const TemporaryFile file(dataFileBytes(MappedWordEmbedding::fileKind, payload.substr(32)));
    EXPECT_EQ(MappedWordEmbedding::open(file.path()), nullptr) << damaged;
  }
}

TEST(DataFiles, AreAsIfAbsentWhenTheyAreAPipe) {
  const TemporaryFile folder("");
  const Path pipe = folder.path().parent_path() / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  for (const Kind& kind : kinds()) EXPECT_FALSE(kind.knows(pipe)) << kind.name;
}

TEST(DataFiles, LeaveServicesThatKnowNothingWhenTheBundleIsEmpty) {
  const simulated::InMemoryBundle bundle;
  const EnglishLanguage english = loadEnglishLanguage(bundle);
  EXPECT_FALSE(english.spellChecker->isCorrect("the"));
  EXPECT_TRUE(english.spellChecker->guesses("teh").empty());
  EXPECT_FALSE(english.tagger->tag("the").has_value());
  EXPECT_EQ(english.embedding, nullptr);
}

TEST(DataFiles, AreNotMadeFromMalformedLists) {
  EXPECT_THROW(packed(packedDictionary, "hello 256\n"), std::runtime_error);
  EXPECT_THROW(packed(packedDictionary, "hello\n"), std::runtime_error);
  EXPECT_THROW(packed(packedDictionary, std::string(64, 'a') + " 1\n"), std::length_error);
  EXPECT_THROW(packed(packedTags, "hello 7\n"), std::runtime_error);
  EXPECT_THROW(packed(packedEmbedding, "hello 1 2\nhelp 1\n"), std::runtime_error);
  EXPECT_THROW(packed(packedEmbedding, "hello 0 0\n"), std::runtime_error);
}

}  // namespace
}  // namespace mirvane
