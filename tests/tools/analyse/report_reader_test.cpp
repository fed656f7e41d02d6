#include "analyse/report_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>

#include "model/correction_event.h"
#include "session/correction_evaluation.h"
#include "session/results_report.h"
#include "text/characters.h"

namespace mirvane {
namespace {

using testing::HasSubstr;

constexpr auto instant = SessionSnapshot{}.sessionStart;

/// Counts the log as an engine does.
void count(SessionSnapshot& session) {
  for (const auto& event : session.correctionLog) {
    if (event.type == correction_type::manual) {
      ++session.manualCorrectionCount;
    } else if (event.type == correction_type::cycle) {
      ++session.cycleKeyCount;
    } else {
      ++session.autoCorrectionCount;
    }
    if (event.type == correction_type::autoNearby) ++session.nearbyKeyCount;
    if (event.type == correction_type::autoRepeat) ++session.repeatKeyCount;
  }
}

SessionSnapshot snapshot(std::int64_t number, const std::string& raw, const std::string& finalText,
                         std::vector<CorrectionEvent> log = {}) {
  SessionSnapshot session{.sessionNumber = number,
                          .prompt = "The quick brown fox",
                          .rawTyped = raw,
                          .finalText = finalText,
                          .elapsed = 127.9,
                          .keystrokeCount = static_cast<std::int64_t>(text::characterCount(raw)),
                          .wordsCompleted = 3,
                          .correctionLog = std::move(log)};
  count(session);
  return session;
}

SessionSnapshot typed() {
  return snapshot(1, "Teh quick brwn fox", "The quick brown fox",
                  {{instant, "Teh", "The", "auto-nearby", 0.85, 0},
                   {instant, "brwn", "brown", "auto-other", 0, 2}});
}

/// The snapshot and what was read of the same session's report say the same.
void expectSame(const SessionSnapshot& snapshot, const TypedSession& read) {
  EXPECT_EQ(read.number, snapshot.sessionNumber);
  EXPECT_EQ(read.prompt, snapshot.prompt);
  EXPECT_EQ(read.raw, snapshot.rawTyped);
  EXPECT_EQ(read.finalText, snapshot.finalText);
  EXPECT_EQ(read.reported->elapsed, std::floor(snapshot.elapsed));
  const auto& log = snapshot.correctionLog;
  const auto verdicts = evaluateCorrections(log, snapshot.prompt, snapshot.rawTyped);
  ASSERT_EQ(read.corrections.size(), log.size());
  for (std::size_t i = 0; i < log.size(); ++i) {
    EXPECT_EQ(read.corrections[i].kind, log[i].type);
    EXPECT_EQ(read.corrections[i].original, log[i].originalWord);
    EXPECT_EQ(read.corrections[i].corrected, log[i].correctedWord);
    EXPECT_EQ(read.corrections[i].wordIndex, log[i].wordIndex);
    EXPECT_NEAR(read.corrections[i].confidence, log[i].confidence, 0.0005);
    EXPECT_EQ(read.corrections[i].verdict->expected, verdicts[i].expectedWord);
    EXPECT_EQ(read.corrections[i].verdict->isRight, verdicts[i].isCorrect);
  }
}

void expectRoundTrip(const SessionSnapshot& first, const SessionSnapshot& second) {
  const auto text = resultsReportText(first, second, instant);
  SCOPED_TRACE(text);
  const auto report = parseReport(text, "test");
  expectSame(first, report.sessions[0]);
  expectSame(second, report.sessions[1]);
}

TEST(ReportReader, ReadsWhatTheProgramWrites) {
  expectRoundTrip(typed(), snapshot(2, "", ""));
  expectRoundTrip(snapshot(1, "", ""), snapshot(2, "x\x7f", ""));
}

TEST(ReportReader, ReadsTextsThatLookLikeTheReport) {
  const std::string trap = "a\nCorrected: b\n\n[ Text Comparison ]\nRaw Typed: ";
  expectRoundTrip(snapshot(1, trap, "ab"), snapshot(2, "(empty)", "(empty)"));
  expectRoundTrip(snapshot(1, "a", "b\nCorrected: a"),
                  snapshot(2, "\xe2\x80\x9cq\xe2\x80\x9d\r", "q\n"));
  expectRoundTrip(snapshot(1, "Teh\" → \"x quick", "The quick",
                           {{instant, "Teh\" → \"x", "The", "auto-repeat", 0.9, 0},
                            {instant, "a\nb\n  #3  [auto-nearby]  \"", "c\n\nSESSION 2 — Cycle",
                             "manual", 0, 1},
                            {instant, "x", "", "cycle", 0, std::nullopt}}),
                  snapshot(2, "\x01\t\x1b", "=====\n-----",
                           {{instant, "x\"  wordIndex=1", "y\"  correct=yes", "cycle", 0.123, 7}}));
}

/// Letters, signs of the report itself and what keys may type, in random order.
TEST(ReportReader, ReadsRandomTexts) {
  const std::string pieces[] = {"a", "teh", " ",          "\n", "\r",   "\"",     " → ",
                                "[", "]",   "#1",         "=",  "\x7f", "é",      "日",
                                "—", "  ",  "wordIndex=", ":",  "'",    "(empty)"};
  std::mt19937 random(7);
  const auto text = [&] {
    std::string result;
    for (auto i = random() % 8; i > 0; --i) result += pieces[random() % std::size(pieces)];
    return result;
  };
  const char* const kinds[] = {"auto-repeat", "auto-nearby", "auto-other", "manual", "cycle"};
  for (int i = 0; i < 300; ++i) {
    SessionSnapshot sessions[] = {snapshot(1, text(), text()), snapshot(2, text(), text())};
    for (auto& session : sessions) {
      for (auto entries = random() % 4; entries > 0; --entries) {
        // An arrow inside a word is tried above: two could not be told from one another here.
        session.correctionLog.push_back({instant, "w" + std::to_string(random() % 90), text() + "z",
                                         kinds[random() % std::size(kinds)], 0.5,
                                         static_cast<std::int64_t>(random() % 5)});
      }
      count(session);
    }
    expectRoundTrip(sessions[0], sessions[1]);
  }
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

TEST(ReportReader, ReadsMailedReports) {
  const auto report = resultsReportText(typed(), snapshot(2, "", ""), instant);
  const auto withLine = [&](const std::string& line) {
    const auto start = report.find("Generated: "), end = report.find('\n', start);
    return report.substr(0, start) + line + report.substr(end);
  };
  const std::string mailed[] = {
      "\xEF\xBB\xBF" + report,
      replaced(report, "\n", "\r\n"),
      "\xEF\xBB\xBF" + replaced(report + "\n", "\n", "\r\n"),
      report + "\n\n-- \nKarl\nsent from a telephone\n",
      "Hello,\n\nhere it is:\n\n" + report + "\n",
      "> " + replaced(report, "\n", "\n> ") + "\n> \n> Karl\n",
      "> " + replaced(replaced(report, "\n", "\n> "), "> \n", ">\n"),
      withLine("Generated: 23.11.2026, 20:10"),
      withLine("Generated: 2026年11月23日 20:10"),
      withLine("Generated: ٢٣ نوفمبر ٢٠٢٦، ٨:١٠ م"),
      withLine("Generated: 23 nov. 2026 à 20:10"),
  };
  for (const auto& text : mailed) {
    SCOPED_TRACE(text);
    expectSame(typed(), parseReport(text, "test").sessions[0]);
  }
}

/// Typed carriage returns in a report with plain line feeds stay.
TEST(ReportReader, KeepsTypedCarriageReturns) {
  expectRoundTrip(snapshot(1, "a\r", "a\n"), snapshot(2, "b\rc", "b\nc"));
}

TEST(ReportReader, NamesTheLineOfADamage) {
  const auto report = resultsReportText(typed(), snapshot(2, "", ""), instant);
  struct Row {
    std::string text;
    const char* message;
  };
  const Row rows[] = {
      {"", "p.txt:1: not a results report"},
      {"shopping list\n", "p.txt:1: not a results report"},
      {replaced(report, "quick", "qu\xFFick"), "p.txt:1: not a results report"},
      {report.substr(0, report.find("WPM")), "p.txt:17: expected \"WPM:"},
      {report.substr(0, report.find("[ Correction Log")), "p.txt:29: expected"},
      {replaced(report, "Elapsed:          2:07", "Elapsed:          soon"),
       "p.txt:7: expected a whole number"},
      {replaced(report, "2 events", "3 events"), "p.txt:31: the log's entry 2 is not whole"},
      {replaced(report, "Nearby Key fixed: 1", "Nearby Key fixed: 11"),
       "p.txt:33: the log above has other corrections"},
      {replaced(report, "[auto-nearby]", "[magic]"), "p.txt:30: unknown kind \"magic\""},
      {replaced(report, "correct=yes", "correct=perhaps"), "p.txt:30: expected \"yes\""},
      {"Hello,\n\n" + replaced(report, "KSPC:             0.", "KSPC:             x"),
       "p.txt:20: expected a number"},
  };
  for (const auto& row : rows) {
    try {
      static_cast<void>(parseReport(row.text, "p.txt"));
      ADD_FAILURE() << "read: " << row.message;
    } catch (const ReportError& error) {
      EXPECT_THAT(error.what(), HasSubstr(row.message));
    }
  }
}

/// However a report breaks off, it is read or refused, never half read.
TEST(ReportReader, RefusesEveryBeginningOfAReport) {
  const auto second = snapshot(2, "Teh", "The", {{instant, "Teh", "The", "auto-nearby", 0.85, 0}});
  const auto report = resultsReportText(typed(), second, instant);
  expectSame(second, parseReport(report, "test").sessions[1]);
  for (std::size_t length = 0; length < report.size(); ++length) {
    EXPECT_THROW(static_cast<void>(parseReport(report.substr(0, length), "test")), ReportError)
        << length;
  }
}

/// A word index counts boundary keys: it tells between which keys a correction came.
TEST(ReportReader, PlacesCorrectionsAmongTheKeys) {
  const auto empty = snapshot(2, "", "");
  const auto session = snapshot(1, "Teh dog. Se sels", "The dog. She sells",
                                {{instant, "Teh", "The", "auto-nearby", 0, 0},
                                 {instant, "Se", "She", "auto-other", 0, 3},
                                 {instant, "sels", "sells", "manual", 0, 4}});
  const auto read = parseReport(resultsReportText(session, empty, instant), "test").sessions[0];
  EXPECT_EQ(read.corrections[0].keysBefore, 4U);
  EXPECT_EQ(read.corrections[1].keysBefore, 12U);
  EXPECT_EQ(read.corrections[2].keysBefore, 16U);
}

}  // namespace
}  // namespace mirvane
