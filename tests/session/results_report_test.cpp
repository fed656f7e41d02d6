#include "session/results_report.h"

#include <gtest/gtest.h>

#include <fstream>
#include <locale>
#include <sstream>

#include "session/study_prompts.h"
#include "tests/support/user_environment.h"

namespace mirvane {
namespace {

using std::chrono::seconds;

const auto* const america =
    testing::AddGlobalTestEnvironment(new UserEnvironment("en_US.UTF-8", "America/New_York"));

/// 2026-11-16T20:10:58Z, ten past three in the afternoon of New York.
constexpr Clock::DateTime saved{seconds{1794859858}};

std::string golden(const std::string& name) {
  const std::ifstream file(std::string(MIRVANE_GOLDEN_DIR "/") + name, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

SessionSnapshot typedSession() {
  return {
      .sessionNumber = 1,
      .prompt = "The quick “café” fox didn't jump, 日本 😀.",
      .rawTyped = "Teh qiuck cafe\u0301 foxx didnt jmp 日本 😀\u0301",
      .finalText = "The quick cafe\u0301 fox didn't jump 日本 👩‍💻",
      .elapsed = 127.9,
      .sessionStart = saved - seconds(1000),
      .keystrokeCount = 41,
      .wordsCompleted = 7,
      .autoCorrectionCount = 4,
      .manualCorrectionCount = 1,
      .cycleKeyCount = 0,
      .nearbyKeyCount = 2,
      .repeatKeyCount = 1,
      .correctionLog = {{saved - seconds(600), "Teh", "The", "auto-nearby", 0, 0},
                        {saved - seconds(540), "qiuck", "quack", "auto-nearby", 0.7, 1},
                        {saved - seconds(500), "foxx", "fox", "auto-repeat", 0.9995, std::nullopt},
                        {saved - seconds(400), "didnt", "didn't", "manual", 0.85, std::nullopt},
                        {saved + seconds(6 * 3600), "jmp", "—", "auto-other", -1, 99}}};
}

std::string reportWith(const SessionSnapshot& session) {
  return resultsReportText(session, {.sessionNumber = 2, .prompt = prompt2}, saved);
}

/// What stands behind a label on its first line in the report.
std::string value(const SessionSnapshot& session, const std::string& label) {
  std::istringstream report(reportWith(session));
  for (std::string line; std::getline(report, line);) {
    if (line.starts_with(label)) return line.substr(label.size());
  }
  return "no such line";
}

TEST(ResultsReport, ReadsAsAgreed) {
  EXPECT_EQ(reportWith(typedSession()), golden("results_report.txt"));
}

struct CommaDecimals : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(ResultsReport, WritesNumbersTheSameInEveryLocale) {
  const std::locale before = std::locale::global(std::locale(std::locale(), new CommaDecimals));
  auto session = typedSession();
  session.keystrokeCount = 12345;
  EXPECT_EQ(value(session, "Keystrokes:       "), "12345");
  EXPECT_EQ(value(session, "WPM:              "), "3.28");
  std::locale::global(before);
}

TEST(ResultsReport, ShowsWholeSecondsAndUnfoldedMinutes) {
  const std::pair<double, const char*> rows[] = {{0, "0:00"},  {7.9, "0:07"},   {59.999, "0:59"},
                                                 {60, "1:00"}, {3725, "62:05"}, {-65, "-1:-5"}};
  for (const auto& [elapsed, text] : rows) {
    EXPECT_EQ(value({.elapsed = elapsed}, "Elapsed:          "), text) << elapsed;
  }
}

TEST(ResultsReport, GuardsItsMetricsAgainstNothing) {
  const auto kspc = [](std::int64_t keystrokes, const char* text) {
    return value({.finalText = text, .keystrokeCount = keystrokes}, "KSPC:             ");
  };
  EXPECT_EQ(kspc(0, "abc"), "N/A");
  EXPECT_EQ(kspc(40, ""), "0.000");
  EXPECT_EQ(kspc(4, "e\u0301👩‍💻"), "2.000");
  EXPECT_EQ(value({.elapsed = 0.03, .wordsCompleted = 12}, "WPM:              "), "12000.00");
  EXPECT_EQ(value({.autoCorrectionCount = 3}, "Correction Rate:  "), "0.00%");
}

TEST(ResultsReport, CountsEveryCorrectionButShowsTheCycleKeyInSessionTwoOnly) {
  const SessionSnapshot session{.sessionNumber = 2,
                                .wordsCompleted = 8,
                                .autoCorrectionCount = 1,
                                .manualCorrectionCount = 1,
                                .cycleKeyCount = 2};
  EXPECT_EQ(value(session, "Correction Rate:  "), "50.00%");
  EXPECT_EQ(value(session, "Cycle Key used:   "), "2");
  EXPECT_EQ(value(session, "Manual (chip):    "), "no such line");
}

}  // namespace
}  // namespace mirvane
