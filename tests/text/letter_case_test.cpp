#include "text/letter_case.h"

#include <gtest/gtest.h>

#include "text/canonical.h"

namespace mirvane::text {
namespace {

TEST(LetterCase, LowersEveryScalarByItself) {
  const std::pair<const char*, const char*> rows[] = {
      {"", ""},         {"Don't @[`{ STOP", "don't @[`{ stop"},
      {"ÀÉÎ", "àéî"},   {"E\u0301", "e\u0301"},
      {"ΟΔΟΣ", "οδοσ"}, {"\u0130", "i\u0307"},
      {"\u1E9E", "ß"},  {"\U00010400", "\U00010428"},
      {"A😀日", "a😀日"},
  };
  std::string reused = "left over from another word";
  for (const auto& [text, lower] : rows) {
    EXPECT_EQ(lowercased(text), lower);
    lowercaseInto(text, reused);
    EXPECT_EQ(reused, lower);
  }
}

struct Pair {
  const char* a;
  const char* b;
  bool equal;
};

TEST(LetterCase, DoesNotMatterToEqualityIgnoringIt) {
  const Pair rows[] = {
      {"Helo", "hELO", true}, {"helo", "help", false},    {"helo", "hel", false},
      {"@", "`", false},      {"ÉTÉ", "e\u0301té", true}, {"\u212A", "k", true},
      {"été", "ete", false},  {"日本", "日", false},
  };
  for (const auto& [a, b, equal] : rows) {
    EXPECT_EQ(equalIgnoringCase(a, b), equal) << a << " " << b;
    EXPECT_EQ(equalIgnoringCase(b, a), equal) << b << " " << a;
  }
}

TEST(Canonical, EquivalentTextsAreEqualAndHaveOneForm) {
  const Pair rows[] = {
      {"é", "e\u0301", true}, {"\uAC00", "\u1100\u1161", true}, {"ﬁ", "fi", false},
      {"é", "e", false},      {"👩‍💻", "👩💻", false},
  };
  for (const auto& [a, b, equal] : rows) {
    EXPECT_EQ(canonicallyEqual(a, b), equal) << a << " " << b;
    EXPECT_EQ(canonicalForm(a) == canonicalForm(b), equal) << a << " " << b;
  }
}

}  // namespace
}  // namespace mirvane::text
