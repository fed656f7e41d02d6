#include <gtest/gtest.h>

#include <array>
#include <string>
#include <thread>

#include "text/canonical.h"
#include "text/characters.h"
#include "text/date_format.h"
#include "text/letter_case.h"
#include "text/utf16.h"
#include "text/word_boundaries.h"

namespace mirvane::text {
namespace {

/// What the words of one text look like to the threads of the program.
struct Answers {
  explicit Answers(const std::string& text)
      : pieces(characters(text)),
        withoutLast(withoutLastCharacter(text)),
        lastStart(lastCharacterStart(toUtf16(text))),
        lower(lowercased(text)),
        canonical(canonicalForm(text)),
        isBoundary(isBoundaryKeyText(text)),
        date(mediumDateShortTime(DateTime())) {}

  bool operator==(const Answers&) const = default;

  std::vector<std::string_view> pieces;
  std::string_view withoutLast;
  std::size_t lastStart;
  std::string lower, canonical;
  bool isBoundary;
  std::string date;
};

TEST(Texts, AreTheSameToEveryThreadAtTheSameTime) {
  const std::array<std::string, 3> texts{"\u00A0", "CAFE\u0301 \u00C9t\u00E9",
                                         "👨‍👩‍👧 \u1112\u1161\u11ab"};
  std::array<int, 3> wrong{};
  std::array<std::thread, 3> threads;
  for (std::size_t i = 0; i < threads.size(); ++i) {
    threads[i] = std::thread([&text = texts[i], &count = wrong[i]] {
      const Answers first(text);
      for (int round = 0; round < 2000; ++round) count += Answers(text) == first ? 0 : 1;
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(wrong, (std::array<int, 3>{}));
}

}  // namespace
}  // namespace mirvane::text
