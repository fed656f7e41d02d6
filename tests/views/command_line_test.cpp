#include "app/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "version/program_version.h"

namespace mirvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> called(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "mirvanetest");
  return arguments;
}

TEST(StudyCommandLine, NamesStudyAndParticipant) {
  const auto plain = parseCommandLine(called({}));
  ASSERT_TRUE(plain.call);
  EXPECT_EQ(plain.call->studyFile, std::nullopt);
  EXPECT_EQ(plain.call->participant, std::nullopt);
  const auto full = parseCommandLine(called({"--study", "a b.json", "--participant=P07"}));
  ASSERT_TRUE(full.call);
  EXPECT_EQ(full.call->studyFile, "a b.json");
  EXPECT_EQ(full.call->participant, "P07");
}

TEST(StudyCommandLine, AnswersHelpAndVersionAtOnce) {
  const auto help = parseCommandLine(called({"--help"}));
  ASSERT_TRUE(help.answer);
  EXPECT_EQ(help.answer->exitCode, 0);
  EXPECT_THAT(help.answer->output, HasSubstr("--participant"));
  const auto version = parseCommandLine(called({"--version"}));
  ASSERT_TRUE(version.answer);
  EXPECT_EQ(version.answer->exitCode, 0);
  EXPECT_EQ(version.answer->output, std::string("mirvanetest ") + programVersion + "\n");
}

TEST(StudyCommandLine, RefusesWhatItDoesNotKnow) {
  const std::vector<std::vector<std::string>> rows{
      {"--studdy", "a.json"},    {"a.json"},           {"--study"}, {"-x"}, {"--participant", ""},
      {"--participant", "../x"}, {"--study", "a", "b"}};
  for (const auto& row : rows) {
    const auto parsed = parseCommandLine(called(row));
    ASSERT_TRUE(parsed.answer) << row.front();
    EXPECT_EQ(parsed.answer->exitCode, 2) << row.front();
    EXPECT_NE(parsed.answer->error, "") << row.front();
    EXPECT_FALSE(parsed.call);
  }
}

TEST(StudyCommandLine, LeavesTheToolkitItsOptions) {
  const auto parsed = parseCommandLine(called({"-platform", "offscreen", "--participant", "P1",
                                               "-style=fusion", "--session", "id_1", "-reverse"}));
  ASSERT_TRUE(parsed.call);
  EXPECT_THAT(parsed.call->toolkitArguments,
              ElementsAre("mirvanetest", "-platform", "offscreen", "-style=fusion", "--session",
                          "id_1", "-reverse"));
  EXPECT_EQ(parsed.call->participant, "P1");
}

}  // namespace
}  // namespace mirvane
