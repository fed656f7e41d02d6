#include "analyse/study_analysis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "analyse/record_reader.h"
#include "recording/recording_writer.h"
#include "recording/study_recording.h"
#include "replay/recorded_session.h"
#include "replay/study_replay.h"
#include "session/study_prompts.h"
#include "session/study_words.h"
#include "typist/typist.h"

namespace mirvane {
namespace {

using testing::IsEmpty;
using Row = std::map<std::string, Cell>;

constexpr auto start = simulated::VirtualClock::defaultStart;

/// Keeps the rows of every table.
class RowKeeper : public TableWriter {
 public:
  void write(const Table& table, const std::vector<Cell>& row) override {
    ASSERT_EQ(row.size(), table.columns.size()) << table.name;
    auto& kept = rows[table.name].emplace_back();
    for (std::size_t i = 0; i < row.size(); ++i) kept[table.columns[i]] = row[i];
  }

  std::map<std::string, std::vector<Row>> rows;
};

/// A folder that is gone after the test.
class Folder {
 public:
  Folder()
      : path_(std::filesystem::path(testing::TempDir()) /
              testing::UnitTest::GetInstance()->current_test_info()->name()) {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { std::filesystem::remove_all(path_); }

  void write(const std::string& name, const std::string& contents) const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary) << contents;
  }
  [[nodiscard]] std::string path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

struct Analysed {
  std::map<std::string, std::vector<Row>> rows;
  std::vector<std::string> messages;
  std::size_t damagedFiles = 0;
};

Analysed analysed(const Folder& folder) {
  ShippedResources shipped;
  RowKeeper keeper;
  Analysed result;
  StudyAnalysis analysis(shipped, keeper,
                         [&](const std::string& message) { result.messages.push_back(message); });
  for (const auto& study : findStudyFiles({folder.path()}).studies) analysis.add(study);
  analysis.finish();
  result.rows = keeper.rows;
  result.damagedFiles = analysis.damagedFiles();
  return result;
}

const std::string& textAt(const Row& row, const std::string& column) {
  return std::get<std::string>(row.at(column));
}
std::int64_t countAt(const Row& row, const std::string& column) {
  return std::get<std::int64_t>(row.at(column));
}
bool isTrue(const Row& row, const std::string& column) {
  return row.at(column) == Cell(true);
}
bool isAutomatic(const Row& correction) {
  return textAt(correction, "kind").starts_with("auto-");
}

/// Both sessions as somebody simulated types them.
struct Participant {
  std::string code;
  std::vector<TypedText> sessions;
};

std::vector<Participant> participants(std::uint64_t count) {
  std::vector<Participant> all;
  for (std::uint64_t seed = 1; seed <= count; ++seed) {
    const auto& profile = seed % 3 == 0 ? steadyProfile() : tremorProfile();
    all.push_back({"P" + std::to_string(seed),
                   {simulateTyping(prompt1, 1, profile, seed),
                    simulateTyping(prompt2, 2, profile, seed + 100)}});
  }
  return all;
}

std::string reportOf(const Participant& participant, ShippedResources& shipped) {
  std::vector<Recording> recordings;
  for (const auto& session : participant.sessions) recordings.push_back(session.recording);
  return reportOf(replayStudy(recordings, shipped, start));
}

/// The word that the simulated typist had in mind last when a correction happened.
const IntendedWord& intendedAt(const std::vector<Participant>& all, const Row& correction) {
  const auto person = std::find_if(all.begin(), all.end(), [&](const auto& participant) {
    return participant.code == textAt(correction, "participant");
  });
  const auto& words =
      person->sessions.at(static_cast<std::size_t>(countAt(correction, "session") - 1)).words;
  const auto t = std::get<double>(correction.at("t_s"));
  const auto next = std::find_if(words.begin(), words.end(),
                                 [&](const IntendedWord& word) { return word.t > t; });
  return *std::prev(next);
}

/// What the table says of every correction is what the typist knows. The report's own verdicts go
/// by an index that counts ". " as two words, and call many right corrections wrong.
TEST(StudyAnalysis, KnowsOfEveryCorrectionWhatTheTypistMeant) {
  const Folder folder;
  const auto all = participants(30);
  ShippedResources shipped;
  for (const auto& participant : all) {
    for (const auto& [recording, words] : participant.sessions) {
      folder.write(participant.code + "-session" + std::to_string(recording.session) + ".jsonl",
                   formatRecording(recording));
    }
    folder.write(participant.code + ".txt", reportOf(participant, shipped));
  }
  const auto result = analysed(folder);
  EXPECT_THAT(result.messages, IsEmpty());
  std::size_t automatic = 0, right = 0, knownRight = 0, calledWrong = 0;
  for (const auto& correction : result.rows.at("corrections")) {
    const auto& word = intendedAt(all, correction);
    const bool isRight =
        normalizedWord(textAt(correction, "corrected")) == normalizedWord(word.meant);
    EXPECT_EQ(textAt(correction, "prompt_word"), word.meant);
    EXPECT_EQ(isTrue(correction, "right"), isRight);
    if (!isAutomatic(correction)) continue;
    ++automatic;
    right += isTrue(correction, "right") ? 1U : 0U;
    knownRight += isRight ? 1U : 0U;
    calledWrong += isRight && correction.at("report_right") == Cell(false) ? 1U : 0U;
  }
  EXPECT_GT(automatic, 200U);
  EXPECT_EQ(right, knownRight);
  EXPECT_GT(calledWrong, automatic / 5);
  for (const auto& session : result.rows.at("sessions")) {
    EXPECT_TRUE(isTrue(session, "final_reproduced")) << textAt(session, "participant");
    EXPECT_TRUE(isTrue(session, "report_matches")) << textAt(session, "participant");
  }
}

/// The recording of version 2 that the program would have written of a participant.
std::string studyRecordingOf(const Participant& participant, ShippedResources& shipped) {
  StudyRecording study{.header = {.program = "0.2.0",
                                  .participant = participant.code,
                                  .prompts = {prompt1, prompt2},
                                  .layout = "us",
                                  .timeZone = "UTC"},
                       .events = {}};
  for (const auto& [recording, words] : participant.sessions) {
    study.header.sessions.push_back({.session = recording.session, .start = start});
    RecordedSession replay(recording, shipped, start);
    const auto& log = replay.engine().measurements().correctionLog;
    std::size_t written = 0;
    for (auto event : recording.events) {
      replay.play(event);
      if (event.kind == RecordedEvent::Kind::done) event.text = replay.field().text();
      study.events.push_back({recording.session, event});
      for (; written < log.size(); ++written) {
        const auto& entry = log[written];
        study.events.push_back({recording.session,
                                {.kind = RecordedEvent::Kind::correction,
                                 .t = event.t,
                                 .correction = {entry.type, entry.originalWord, entry.correctedWord,
                                                entry.wordIndex, entry.confidence}}});
      }
    }
  }
  return formatStudyRecording(study);
}

/// All columns that do not tell where the row was read.
void expectSameRows(const std::vector<Row>& a, const std::vector<Row>& b,
                    const std::set<std::string>& differing) {
  ASSERT_EQ(a.size(), b.size());
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (const auto& [column, value] : a[i]) {
      if (differing.contains(column)) continue;
      EXPECT_EQ(value, b[i].at(column)) << column << " of row " << i;
    }
  }
}

const std::set<std::string> sourceColumns{"record", "report", "format", "program",
                                          "data",   "layout", "start",  "time_zone"};

TEST(StudyAnalysis, GivesTheSameForBothVersionsOfARecord) {
  const Folder folder;
  ShippedResources shipped;
  const auto all = participants(3);
  for (const auto& participant : all) {
    for (const auto& [recording, words] : participant.sessions) {
      folder.write(participant.code + "_s" + std::to_string(recording.session) + ".jsonl",
                   formatRecording(recording));
    }
  }
  const auto first = analysed(folder);
  for (const auto& participant : all) {
    for (const char* suffix : {"_s1.jsonl", "_s2.jsonl"}) {
      std::filesystem::remove(folder.path() + "/" + participant.code + suffix);
    }
    folder.write("record-of-" + participant.code + ".jsonl",
                 studyRecordingOf(participant, shipped));
  }
  const auto second = analysed(folder);
  EXPECT_THAT(second.messages, IsEmpty());
  for (const char* table : {"sessions", "corrections", "keys", "confusions"}) {
    SCOPED_TRACE(table);
    expectSameRows(first.rows.at(table), second.rows.at(table), sourceColumns);
  }
  EXPECT_EQ(textAt(second.rows.at("sessions")[0], "participant"), "P1");
}

/// A report alone tells all but the times.
TEST(StudyAnalysis, GivesTheSameForAReportAsForARecordBesideTheTimes) {
  const Folder folder;
  ShippedResources shipped;
  const auto all = participants(6);
  for (const auto& participant : all) {
    folder.write(participant.code + ".jsonl", studyRecordingOf(participant, shipped));
    folder.write(participant.code + ".txt", reportOf(participant, shipped));
  }
  const auto both = analysed(folder);
  for (const auto& participant : all) {
    std::filesystem::remove(folder.path() + "/" + participant.code + ".jsonl");
  }
  const auto reports = analysed(folder);
  auto differing = sourceColumns;
  differing.insert({"resets",
                    "held_repeats",
                    "first_key_s",
                    "last_key_s",
                    "typing_s",
                    "wpm",
                    "adjusted_wpm",
                    "wrong_correction_cost_ms",
                    "interval_median_ms",
                    "interval_mean_ms",
                    "interval_sd_ms",
                    "hold_median_ms",
                    "hold_mean_ms",
                    "hold_sd_ms",
                    "hesitations",
                    "repeats",
                    "report_matches",
                    "t_s",
                    "continued_ms",
                    "cost_ms",
                    "gap_ms",
                    "hold_ms",
                    "confidence"});
  for (const char* table : {"sessions", "corrections", "keys", "confusions"}) {
    SCOPED_TRACE(table);
    expectSameRows(both.rows.at(table), reports.rows.at(table), differing);
  }
  for (const auto& session : reports.rows.at("sessions")) {
    EXPECT_EQ(session.at("wpm"), Cell());
    EXPECT_EQ(session.at("hesitations"), Cell());
  }
}

TEST(StudyAnalysis, LeavesOutDamagedFilesAndGoesOn) {
  const Folder folder;
  ShippedResources shipped;
  const auto one = participants(1).front();
  const auto report = reportOf(one, shipped), record = studyRecordingOf(one, shipped);
  folder.write("A.txt", report.substr(0, report.size() / 2));
  folder.write("B.txt", report);
  folder.write("B.jsonl", record.substr(0, record.size() / 2));
  folder.write("C.jsonl", "{\"recording\":3}\n");
  folder.write("D.jsonl", "");
  folder.write("below/E.jsonl", record);
  const auto result = analysed(folder);
  EXPECT_EQ(result.damagedFiles, 4U);
  using testing::ContainsRegex;
  EXPECT_THAT(
      result.messages,
      testing::ElementsAre(ContainsRegex("A\\.txt:[0-9]+: "), ContainsRegex("B\\.jsonl:[0-9]+: "),
                           ContainsRegex("C\\.jsonl:1: "), ContainsRegex("D\\.jsonl:1: ")));
  ASSERT_EQ(result.rows.at("sessions").size(), 4U);
  EXPECT_EQ(textAt(result.rows.at("sessions")[0], "participant"), "B");
  EXPECT_EQ(textAt(result.rows.at("sessions")[0], "record"), "");
  EXPECT_EQ(textAt(result.rows.at("participants")[1], "record"), "E.jsonl");
}

TEST(StudyAnalysis, TellsOfReportsThatAreNotOfTheirRecordAndOfCodesUsedTwice) {
  const Folder folder;
  ShippedResources shipped;
  const auto people = participants(2);
  folder.write("A.txt", reportOf(people[1], shipped));
  folder.write("A.jsonl", studyRecordingOf(people[0], shipped));
  folder.write("B.jsonl", studyRecordingOf(people[0], shipped));
  const auto result = analysed(folder);
  EXPECT_THAT(result.messages, testing::ElementsAre("A.txt: session 1 is not as in A.jsonl",
                                                    "A.txt: session 2 is not as in A.jsonl",
                                                    "participant P1 has several studies"));
  EXPECT_FALSE(isTrue(result.rows.at("sessions")[0], "report_matches"));
  EXPECT_EQ(result.damagedFiles, 0U);
}

TEST(StudyAnalysis, LeavesAnUntouchedSessionWithoutMeasures) {
  const Folder folder;
  ShippedResources shipped;
  auto one = participants(1).front();
  one.sessions.pop_back();
  folder.write("A.txt", reportOf(one, shipped));
  const auto result = analysed(folder);
  const auto& untouched = result.rows.at("sessions")[1];
  EXPECT_EQ(countAt(untouched, "keystrokes"), 0);
  for (const char* column : {"final_msd", "final_total_error_rate", "kspc", "final_words_right"}) {
    EXPECT_EQ(untouched.at(column), Cell()) << column;
  }
  EXPECT_EQ(countAt(result.rows.at("participants")[0], "sessions"), 1);
}

}  // namespace
}  // namespace mirvane
