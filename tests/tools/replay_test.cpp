#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>

#include "platform/simulated/virtual_clock.h"
#include "recording/recording.h"
#include "replay/study_replay.h"

namespace mirvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Json = nlohmann::json;

constexpr auto start = simulated::VirtualClock::defaultStart;

/// English of a few words, so that nothing hangs on the shipped resources.
const std::string ownEnglish =
    R"("parameters":{"nearbyKeyMap":{"j":{"h":0.3}}},"language":{"known":["hello","help","the"],)"
    R"("guesses":{"helo":["hello","help"],"Teh":["The"]},"embedding":false})";

std::string headerOf(int session, const std::string& extra = "") {
  return R"({"recording":1,"session":)" + std::to_string(session) + R"(,"prompt":"Hello the",)" +
         ownEnglish + extra + "}\n";
}

/// Presses of single characters, 0.2 s apart; "|" is the cycle key.
std::string keys(std::string_view text, double t = 0) {
  std::string lines;
  for (const char c : text) {
    t += 0.2;
    const Json event = c == '|'
                           ? Json{{"t", t}, {"type", "flags"}, {"keyCode", 61}, {"flags", 0x80000}}
                           : Json{{"t", t},
                                  {"type", "down"},
                                  {"keyCode", c == ' ' ? 49 : 7},
                                  {"text", std::string(1, c)}};
    lines += event.dump() + "\n";
  }
  return lines;
}

Recording recordingOf(const std::string& contents) {
  return parseRecording(contents, "test");
}

Json replayed(const std::string& contents) {
  ShippedResources shipped;
  const auto study = replayStudy({recordingOf(contents)}, shipped, start);
  return Json::parse(jsonOf(study))["sessions"][0];
}

std::vector<Json> traced(const std::string& contents) {
  ShippedResources shipped;
  std::vector<Json> lines;
  std::istringstream stream(traceOf(recordingOf(contents), shipped, start));
  for (std::string line; std::getline(stream, line);) lines.push_back(Json::parse(line));
  return lines;
}

std::string contentsOf(const std::string& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(Replay, CorrectsAndCounts) {
  const auto session = replayed(headerOf(1) + keys("helo Teh "));
  EXPECT_EQ(session["finalText"], "hello The ");
  EXPECT_EQ(session["rawTyped"], "helo Teh ");
  EXPECT_EQ(session["keystrokeCount"], 9);
  EXPECT_EQ(session["wordsCompleted"], 2);
  EXPECT_EQ(session["autoCorrectionCount"], 2);
  const auto& log = session["correctionLog"];
  ASSERT_EQ(log.size(), 2u);
  EXPECT_EQ(log[0]["type"], "auto-other");
  EXPECT_EQ(log[0]["confidence"], 0.85);
  EXPECT_EQ(log[1]["type"], "auto-nearby");
  EXPECT_EQ(log[1]["wordIndex"], 1);
  EXPECT_EQ(log[1]["expectedWord"], "the");
  EXPECT_EQ(log[1]["isCorrect"], true);
}

TEST(Replay, FollowsKeysChipsFieldsAndSettings) {
  const std::string helo = headerOf(1) + keys("helo");
  const std::string elsewhere = R"({"t":2,"type":"activate","app":"org.other"})"
                                "\n";
  const std::string disabled = R"(,"settings":{"disabledAppBundleIDs":["org.other"]})";
  const auto kind = [](const std::string& name) {
    return headerOf(1, R"(,"field":{"text":"a ","kind":")" + name + "\"}") + keys("helo ");
  };
  const std::pair<std::string, const char*> rows[] = {
      {headerOf(2) + keys("helo |"), "help "},
      {headerOf(2) + keys("helo ||"), "helo "},
      {headerOf(1) + keys("helo |"), "hello "},
      {helo + R"({"t":2,"type":"chip","index":1})", "help"},
      {helo + R"({"t":2,"type":"chip","index":2})", "helo"},
      {headerOf(1) + keys("the ") + R"({"t":2,"type":"done"})" + "\n" + keys("helo ", 3), "the "},
      {kind("normal"), "a hello "},
      {kind("noAccessibility"), "a hello "},
      {kind("ignoresWrites"), "a helo "},
      {kind("password"), "a helo "},
      {headerOf(1, disabled) + keys("helo ") + elsewhere + keys("helo ", 3), "hello helo "},
  };
  for (const auto& [recording, finalText] : rows) {
    EXPECT_EQ(replayed(recording)["finalText"], finalText) << recording;
  }
  EXPECT_EQ(replayed(kind("password"))["autoCorrectionCount"], 1);
}

TEST(Replay, StartsAnewAtAReset) {
  const auto session = replayed(headerOf(1, R"(,"end":60)") + keys("helo ") +
                                R"({"t":20,"type":"reset"})" + "\n" + keys("the", 30));
  EXPECT_EQ(session["finalText"], "the");
  EXPECT_EQ(session["keystrokeCount"], 3);
  EXPECT_EQ(session["elapsed"], 40.0);
  EXPECT_THAT(session["correctionLog"], IsEmpty());
}

TEST(Trace, TellsWhatTheEngineThinks) {
  const auto lines = traced(headerOf(1) + keys("helo "));
  ASSERT_EQ(lines.size(), 5u);
  const auto& lastLetter = lines[3];
  EXPECT_EQ(lastLetter["word"], "helo");
  EXPECT_EQ(lastLetter["suggestions"], Json({"hello", "help"}));
  EXPECT_EQ(lastLetter["currentWord"], "helo");
  EXPECT_EQ(lastLetter["record"], nullptr);
  EXPECT_EQ(lastLetter["feedback"], "nearbyKeyDetected");
  const auto& boundary = lines[4];
  EXPECT_EQ(boundary["field"], "hello ");
  EXPECT_EQ(boundary["caret"], 6);
  EXPECT_EQ(boundary["lastCompletedWord"], Json({"hello", " "}));
  EXPECT_EQ(boundary["record"]["currentIndex"], 0);
  EXPECT_EQ(boundary["record"]["hasTarget"], true);
  EXPECT_DOUBLE_EQ(boundary["state"]["typingScore"], 200);
}

TEST(SampleStudy, GivesTheSameReportEverywhere) {
  setenv("TZ", "UTC", 1);
  setenv("LC_ALL", "en_US.UTF-8", 1);
  ShippedResources shipped;
  const std::string samples = MIRVANE_SAMPLES;
  const auto study = replayStudy(
      {readRecording(samples + "/session1.jsonl"), readRecording(samples + "/session2.jsonl")},
      shipped, start);
  const auto golden = std::string(MIRVANE_GOLDEN) + "/sample-study.txt";
  if (std::getenv("MIRVANE_UPDATE_GOLDEN") != nullptr) std::ofstream(golden) << reportOf(study);
  EXPECT_EQ(reportOf(study), contentsOf(golden));
}

TEST(SampleStudy, ShowsEveryTypeOfCorrection) {
  const auto report = contentsOf(std::string(MIRVANE_GOLDEN) + "/sample-study.txt");
  for (const char* type : {"auto-repeat", "auto-nearby", "auto-other", "manual", "cycle"}) {
    EXPECT_THAT(report, HasSubstr("[" + std::string(type) + "]"));
  }
}

}  // namespace
}  // namespace mirvane
