#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace mirvane {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

struct Outcome {
  int exitCode = 0;
  std::string output;
};

Outcome run(const std::string& command) {
  FILE* pipe = popen((std::string(MIRVANE_PROGRAMS) + "/" + command).c_str(), "r");
  Outcome outcome;
  std::array<char, 4096> buffer{};
  while (const auto count = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
    outcome.output.append(buffer.data(), count);
  }
  outcome.exitCode = WEXITSTATUS(pclose(pipe));
  return outcome;
}

/// Standard error alone.
Outcome complaint(const std::string& command) {
  return run(command + " 2>&1 >/dev/null");
}

const std::string sample = std::string(MIRVANE_SAMPLES) + "/session1.jsonl";

TEST(CommandLine, PrintsTheSameBytesEveryTime) {
  const auto command = "mirvane-replay --start 2026-11-16T20:10:58Z " + sample;
  const auto first = run(command);
  EXPECT_EQ(first.exitCode, 0);
  EXPECT_THAT(first.output, HasSubstr("SESSION 1 — Space Only"));
  EXPECT_EQ(run(command).output, first.output);
}

TEST(CommandLine, RefusesDamageWithOneLineAndNoReport) {
  const auto path = std::filesystem::path(testing::TempDir()) / "mirvane-damaged.jsonl";
  std::ofstream(path) << R"({"recording":1,"session":1,"prompt":""})"
                         "\n{\"t\":1,\n";
  const auto command = "mirvane-replay " + sample + " " + path.string();
  EXPECT_EQ(complaint(command).output, path.string() + ":2: not valid JSON\n");
  EXPECT_EQ(complaint(command).exitCode, 2);
  EXPECT_THAT(run(command + " 2>/dev/null").output, IsEmpty());
  std::filesystem::remove(path);
}

TEST(CommandLine, ExplainsWrongCalls) {
  struct Row {
    std::string command;
    const char* complaint;
  };
  const Row rows[] = {
      {"mirvane-replay", "no recording is named"},
      {"mirvane-replay nowhere.jsonl", "nowhere.jsonl: cannot be read"},
      {"mirvane-replay " + sample + " " + sample, "both recordings are of session 1"},
      {"mirvane-replay --start yesterday " + sample, "--start: not an instant"},
      {"mirvane-typist --seed 1 --session 3", "--session"},
      {"mirvane-typist --session 1", "--seed"},
      {"mirvane-evaluate", "Exactly 1 option"},
      {"mirvane-evaluate --words nowhere.txt", "nowhere.txt: cannot be read"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.command);
    const auto outcome = complaint(row.command);
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.output, HasSubstr(row.complaint));
  }
}

}  // namespace
}  // namespace mirvane
