#include "session/results_report.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <vector>

#include "session/correction_evaluation.h"
#include "text/characters.h"
#include "text/date_format.h"

namespace mirvane {
namespace {

using Lines = std::vector<std::string>;

constexpr std::size_t ruleWidth = 50;
constexpr double leastMinutes = 0.001;  // keeps the words per minute finite

/// A fixed number of decimals, with a point whatever the locale.
std::string decimal(double value, int decimals) {
  std::array<char, 400> digits{};  // the largest double has 309 digits before the point
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                    std::chars_format::fixed, decimals);
  return {digits.data(), result.ptr};
}

std::string elapsedText(double elapsed) {
  const auto seconds = static_cast<std::int64_t>(elapsed);
  const auto rest = std::to_string(seconds % 60);
  return std::to_string(seconds / 60) + ':' + (rest.size() < 2 ? "0" : "") + rest;
}

std::string wordsPerMinute(const SessionSnapshot& session) {
  const double minutes = std::max(session.elapsed / 60, leastMinutes);
  return decimal(static_cast<double>(session.wordsCompleted) / minutes, 2);
}

std::string keystrokesPerCharacter(const SessionSnapshot& session) {
  if (session.keystrokeCount < 1) return "N/A";
  const auto characters = static_cast<double>(text::characterCount(session.finalText));
  return decimal(characters == 0 ? 0 : static_cast<double>(session.keystrokeCount) / characters, 3);
}

std::string correctionRate(const SessionSnapshot& session) {
  const auto corrections =
      session.autoCorrectionCount + session.manualCorrectionCount + session.cycleKeyCount;
  const double rate =
      session.wordsCompleted < 1
          ? 0
          : static_cast<double>(corrections) / static_cast<double>(session.wordsCompleted) * 100;
  return decimal(rate, 2) + '%';
}

std::string count(const std::vector<CorrectionEvaluation>& evaluations, bool isCorrect) {
  return std::to_string(
      std::count_if(evaluations.begin(), evaluations.end(),
                    [&](const auto& evaluation) { return evaluation.isCorrect == isCorrect; }));
}

std::string orEmpty(const std::string& text) {
  return text.empty() ? "(empty)" : text;
}

std::string yesOrNo(const std::optional<bool>& isCorrect) {
  if (!isCorrect) return "unknown";
  return *isCorrect ? "yes" : "no";
}

std::string logLine(std::size_t number, const CorrectionEvent& event,
                    const CorrectionEvaluation& evaluation) {
  std::string line = "  #" + std::to_string(number) + "  [" + event.type + "]  \"";
  line += event.originalWord + "\" → \"" + event.correctedWord + '"';
  line += "  wordIndex=" + (event.wordIndex ? std::to_string(*event.wordIndex) : "unknown");
  line += "  expected=\"" + evaluation.expectedWord.value_or("unknown") + '"';
  line += "  correct=" + yesOrNo(evaluation.isCorrect);
  line += "  conf=" + (event.confidence > 0 ? decimal(event.confidence, 3) : "N/A");
  line += "  t=" + text::clockTime(event.timestamp);
  return line;
}

void addTextComparison(Lines& lines, const SessionSnapshot& session) {
  lines.insert(lines.end(), {"[ Text Comparison ]",                      //
                             "Prompt:    " + session.prompt,             //
                             "Raw Typed: " + orEmpty(session.rawTyped),  //
                             "Corrected: " + orEmpty(session.finalText), ""});
}

void addTypingEfficiency(Lines& lines, const SessionSnapshot& session) {
  lines.insert(lines.end(),
               {"[ Typing Efficiency ]",                                        //
                "Keystrokes:       " + std::to_string(session.keystrokeCount),  //
                "Words:            " + std::to_string(session.wordsCompleted),  //
                "WPM:              " + wordsPerMinute(session),                 //
                "KSPC:             " + keystrokesPerCharacter(session), ""});
}

void addCorrectionMetrics(Lines& lines, const SessionSnapshot& session,
                          const std::vector<CorrectionEvaluation>& evaluations) {
  const std::string byHand =
      session.sessionNumber == 2
          ? "Cycle Key used:   " + std::to_string(session.cycleKeyCount)
          : "Manual (chip):    " + std::to_string(session.manualCorrectionCount);
  lines.insert(lines.end(),
               {"[ Correction Metrics ]",  //
                "Auto-corrections: " + std::to_string(session.autoCorrectionCount), byHand,
                "Correction Rate:  " + correctionRate(session),                 //
                "Nearby Key fixed: " + std::to_string(session.nearbyKeyCount),  //
                "Repeat Key fixed: " + std::to_string(session.repeatKeyCount),  //
                "Correct fixes:    " + count(evaluations, true),                //
                "Incorrect fixes:  " + count(evaluations, false), ""});
}

void addCorrectionLog(Lines& lines, const SessionSnapshot& session,
                      const std::vector<CorrectionEvaluation>& evaluations) {
  const auto& log = session.correctionLog;
  lines.push_back("[ Correction Log — " + std::to_string(log.size()) + " events ]");
  for (std::size_t i = 0; i < log.size(); ++i) {
    lines.push_back(logLine(i + 1, log[i], evaluations[i]));
  }
  lines.emplace_back();
}

void addSession(Lines& lines, const SessionSnapshot& session) {
  const auto evaluations =
      evaluateCorrections(session.correctionLog, session.prompt, session.rawTyped);
  lines.emplace_back(session.sessionNumber == 1 ? "SESSION 1 — Space Only"
                                                : "SESSION 2 — Cycle Key (Right Option ⌥)");
  lines.emplace_back(ruleWidth, '-');
  lines.push_back("Elapsed:          " + elapsedText(session.elapsed));
  lines.emplace_back();
  addTextComparison(lines, session);
  addTypingEfficiency(lines, session);
  addCorrectionMetrics(lines, session, evaluations);
  addCorrectionLog(lines, session, evaluations);
}

std::string joined(const Lines& lines) {
  std::string text;
  for (const auto& line : lines) {
    if (!text.empty()) text += '\n';
    text += line;
  }
  return text;
}

}  // namespace

std::string resultsReportText(const SessionSnapshot& session1, const SessionSnapshot& session2,
                              Clock::DateTime now) {
  Lines lines{"MirvaneTest — Session Results", std::string(ruleWidth, '='),
              "Generated: " + text::mediumDateShortTime(now), ""};
  addSession(lines, session1);
  addSession(lines, session2);
  lines.emplace_back(ruleWidth, '=');
  return joined(lines);
}

}  // namespace mirvane
