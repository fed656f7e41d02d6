#include "language/guess_selection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mirvane {
namespace {

struct Row {
  std::string typed;
  std::vector<Guess> nearest;
  std::vector<std::string> offered;
};

void expectOffered(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_THAT(worthOffering(row.typed, row.nearest), testing::ElementsAreArray(row.offered))
        << row.typed;
  }
}

TEST(GuessSelection, OffersWhatLooksLessLikelyThanTheNearest) {
  expectOffered({{"", {}, {}},
                 {"whit", {{"white", 100}}, {"white"}},
                 // A shorter common beginning.
                 {"stroe", {{"store", 90}, {"stove", 130}}, {"store", "stove"}},
                 {"muut", {{"must", 141}, {"mutt", 158}, {"met", 167}}, {"must", "mutt", "met"}},
                 // The typed word is only the beginning.
                 {"nort", {{"not", 104}, {"north", 110}}, {"not", "north"}}});
}

TEST(GuessSelection, LeavesOutWhatLooksLikelierButIsFarther) {
  expectOffered({{"plannig", {{"planning", 126}, {"planing", 139}}, {"planning"}},  // a swap
                 {"winows", {{"windows", 128}, {"winnows", 151}}, {"windows"}},     // a double
                 {"thery", {{"they", 103}, {"theory", 133}}, {"they"}},             // a vowel
                 {"servicew", {{"service", 120}, {"services", 130}}, {"service"}},  // a key
                 {"unluck", {{"unlucky", 140}, {"unlock", 156}}, {"unlucky"}}});
}

TEST(GuessSelection, OffersBothWhenTheyAreAboutAsNear) {
  expectOffered({{"servicew", {{"service", 120}, {"services", 123}}, {"service", "services"}}});
}

TEST(GuessSelection, OffersAFew) {
  const std::vector<Guess> nearest{{"aa", 10}, {"ab", 11}, {"ac", 12}, {"ad", 13},
                                   {"ae", 13}, {"af", 14}, {"ag", 14}};
  EXPECT_EQ(worthOffering("xy", nearest).size(), 5U);
}

}  // namespace
}  // namespace mirvane
