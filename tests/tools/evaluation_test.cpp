#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "evaluate/pair_evaluation.h"
#include "evaluate/sentence_evaluation.h"
#include "evaluate/tab_separated.h"
#include "evaluate/word_evaluation.h"

namespace mirvane {
namespace {

using testing::ElementsAre;

class Evaluation : public testing::Test {
 protected:
  std::filesystem::path file(const std::string& contents) {
    const auto name = testing::UnitTest::GetInstance()->current_test_info()->name();
    path_ = std::filesystem::path(testing::TempDir()) / (std::string("mirvane-") + name);
    std::ofstream(path_) << contents;
    return path_;
  }
  void TearDown() override { std::filesystem::remove(path_); }

  ShippedResources shipped_;
  const Progress silent_ = [](std::size_t, std::size_t) {};

 private:
  std::filesystem::path path_;
};

TEST_F(Evaluation, CountsPairsByKind) {
  const auto result = evaluatePairs(
      file("helllo\thello\trepeat\nqqqqxz\thello\tnone\nThe\tthe\trepeat\n"), shipped_, silent_);
  EXPECT_EQ(result["pairs"], 3);
  EXPECT_DOUBLE_EQ(result["top1"], 2.0 / 3);
  EXPECT_DOUBLE_EQ(result["missing"], 1.0 / 3);
  EXPECT_EQ(result["kinds"]["repeat"]["top1"], 1);
  EXPECT_EQ(result["kinds"]["none"]["missing"], 1);
}

TEST_F(Evaluation, CountsTheWordsOfSentences) {
  // Corrected well; left as it was typed; corrected although it was meant (the name is unknown).
  const auto result =
      evaluateSentences(file("I said helllo to you.\tI said hello to you.\n"
                             "An ege for me.\tAn egg for me.\n"
                             "Ask mister Zqxhello now.\tAsk mister Zqxhello now.\n"),
                        shipped_, silent_);
  EXPECT_EQ(result["words"], 13);
  EXPECT_EQ(result["wrong"], 2);
  EXPECT_EQ(result["right"], 11);
  EXPECT_GE(result["fixed"], 0.5);
  EXPECT_GE(result["offeredTop3"], 0.5);
}

TEST_F(Evaluation, ListsRejectedWords) {
  const auto result = evaluateWords(file("the\nqzxv\nstella\n"), shipped_, silent_);
  EXPECT_THAT(result["rejectedWords"], ElementsAre("qzxv"));
  EXPECT_DOUBLE_EQ(result["rejected"], 1.0 / 3);
}

TEST_F(Evaluation, NamesTheLineThatIsShort) {
  try {
    static_cast<void>(readTabSeparated(file("a\tb\n\nlonely\n"), 2));
    FAIL() << "no error";
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr(":3: expected 2 fields"));
  }
}

}  // namespace
}  // namespace mirvane
