#include "language/repeated_letters.h"

#include <gtest/gtest.h>

namespace mirvane {
namespace {

TEST(RepeatedLetters, AreTooManyOnlyBeyondWhatASlipAddsToEnglish) {
  for (const char* word : {"", "a", "helllo", "committee", "successfully", "mississippi",
                           "committtee", "vacuumm", "skiinng", "rabbittt"}) {
    EXPECT_FALSE(hasTooManyRepeats(word)) << word;
  }
  for (const char* word : {"helllooo", "aabb'hh", "skiikng'ww", "ttthhhe", "bookkeepperr"}) {
    EXPECT_TRUE(hasTooManyRepeats(word)) << word;
  }
}

}  // namespace
}  // namespace mirvane
