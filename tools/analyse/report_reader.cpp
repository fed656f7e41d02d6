#include "analyse/report_reader.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "analyse/mailed_text.h"
#include "analyse/report_log.h"
#include "analyse/text_cursor.h"
#include "model/correction_event.h"
#include "text/characters.h"
#include "text/word_boundaries.h"

namespace mirvane {
namespace {

constexpr std::size_t ruleWidth = 50;

/// What the texts of a session can be checked against.
struct Counts {
  std::int64_t keystrokes = 0;
  std::optional<double> kspc = {};
};

/// What is counted of the log before it.
struct LogCounts {
  std::int64_t automatic = 0;
  std::int64_t byHand = 0;  // chips in session 1, cycle steps in session 2
  std::int64_t nearby = 0;
  std::int64_t repeat = 0;
  std::int64_t correct = 0;
  std::int64_t incorrect = 0;

  bool operator==(const LogCounts&) const = default;
};

LogCounts countsOf(const std::vector<LoggedCorrection>& log, std::int64_t session) {
  LogCounts counts;
  const std::string byHand = session == 2 ? correction_type::cycle : correction_type::manual;
  for (const auto& entry : log) {
    counts.automatic += entry.kind.starts_with("auto-") ? 1 : 0;
    counts.byHand += entry.kind == byHand ? 1 : 0;
    counts.nearby += entry.kind == correction_type::autoNearby ? 1 : 0;
    counts.repeat += entry.kind == correction_type::autoRepeat ? 1 : 0;
    counts.correct += entry.verdict->isRight == true ? 1 : 0;
    counts.incorrect += entry.verdict->isRight == false ? 1 : 0;
  }
  return counts;
}

bool isEmptyMark(std::string_view text, bool isEmpty) {
  return text == "(empty)" && isEmpty;
}

std::string_view rawTextOf(std::string_view text, const Counts& counts) {
  return isEmptyMark(text, counts.keystrokes == 0) ? std::string_view() : text;
}

std::string_view finalTextOf(std::string_view text, const Counts& counts) {
  return isEmptyMark(text, !counts.kspc || *counts.kspc == 0) ? std::string_view() : text;
}

bool fitsKeystrokes(std::string_view raw, const Counts& counts) {
  return static_cast<std::int64_t>(text::characterCount(raw)) == counts.keystrokes;
}

bool fitsKspc(std::string_view finalText, const Counts& counts) {
  constexpr double rounding = 0.0006;
  const auto characters = static_cast<double>(text::characterCount(finalText));
  if (!counts.kspc || characters == 0) return finalText.empty();
  return std::abs(static_cast<double>(counts.keystrokes) / characters - *counts.kspc) < rounding;
}

/// Where in "raw text, line feed, label, final text" the label is: the participant may have typed
/// one too. The counts tell; if they do not, it is the first.
std::size_t labelBetweenTexts(std::string_view texts, std::string_view label,
                              const Counts& counts) {
  std::optional<std::size_t> fittingRaw;
  for (auto at = texts.find(label); at != std::string_view::npos; at = texts.find(label, at + 1)) {
    if (!fitsKeystrokes(rawTextOf(texts.substr(0, at), counts), counts)) continue;
    if (fitsKspc(finalTextOf(texts.substr(at + label.size()), counts), counts)) return at;
    if (!fittingRaw) fittingRaw = at;
  }
  return fittingRaw.value_or(texts.find(label));
}

double secondsOf(TextCursor& text) {
  const auto minutes = text.wholeNumber();
  text.expect(":");
  constexpr double secondsPerMinute = 60;
  return static_cast<double>(minutes) * secondsPerMinute + static_cast<double>(text.wholeNumber());
}

std::optional<double> kspcOf(TextCursor& text) {
  if (text.skip("N/A")) return std::nullopt;
  return text.decimal();
}

/// The keys of a raw text, and before which of them each correction happened: a word index counts
/// the boundary keys.
void readKeys(TypedSession& session) {
  std::vector<std::size_t> keysBeforeBoundary, keysAfterBoundary;
  for (const auto character : text::characters(session.raw)) {
    const bool isBoundary = text::isBoundaryKeyText(character);
    if (isBoundary) keysBeforeBoundary.push_back(session.keys.size());
    if (auto key = keyOfCharacter(character)) session.keys.push_back(std::move(*key));
    if (isBoundary) keysAfterBoundary.push_back(session.keys.size());
  }
  std::size_t latest = 0;
  for (auto& correction : session.corrections) {
    const bool isPicked = correction.kind == correction_type::manual;
    const auto& places = isPicked ? keysBeforeBoundary : keysAfterBoundary;
    const auto index = static_cast<std::size_t>(correction.wordIndex.value_or(0));
    const bool isAtEnd = correction.wordIndex && index >= places.size();
    if (isAtEnd) latest = session.keys.size();
    if (correction.wordIndex && !isAtEnd) latest = std::max(latest, places[index]);
    correction.keysBefore = latest;
  }
}

class ReportParser {
 public:
  explicit ReportParser(TextCursor text) : text_(text) {}

  StudyReport parse() {
    text_.expect("MirvaneTest — Session Results\n");
    text_.expect(std::string(ruleWidth, '=') + "\n");
    text_.expect("Generated: ");
    text_.line();
    text_.expect("\n");
    StudyReport report;
    report.sessions[0] = parseSession(1, "SESSION 2 — Cycle Key (Right Option ⌥)\n");
    report.sessions[1] = parseSession(2, std::string(ruleWidth, '='));
    text_.expect(std::string(ruleWidth, '='));
    return report;
  }

 private:
  TypedSession parseSession(std::int64_t number, std::string_view next) {
    TypedSession session{.number = number};
    session.reported.emplace();
    text_.expect(number == 1 ? "SESSION 1 — Space Only\n"
                             : "SESSION 2 — Cycle Key (Right Option ⌥)\n");
    text_.expect(std::string(ruleWidth, '-') + "\nElapsed:          ");
    session.reported->elapsed = secondsOf(text_);
    text_.expect("\n\n[ Text Comparison ]\nPrompt:    ");
    session.prompt = text_.until("\nRaw Typed: ");
    parseTextsAndEfficiency(session);
    const auto counts = parseLogCounts(number);
    session.reported->correctFixes = counts.correct;
    session.reported->incorrectFixes = counts.incorrect;
    text_.expect("\n\n[ Correction Log — ");
    const auto entries = static_cast<std::size_t>(text_.wholeNumber());
    text_.expect(" events ]\n");
    session.corrections = parseReportLog(text_, entries, session.raw, next);
    if (countsOf(session.corrections, number) != counts) {
      text_.fail("the log above has other corrections than are counted before it");
    }
    readKeys(session);
    return session;
  }

  void parseTextsAndEfficiency(TypedSession& session) {
    constexpr std::string_view label = "\nCorrected: ";
    const auto texts = text_;
    const auto typed = text_.until("\n\n[ Typing Efficiency ]\nKeystrokes:       ");
    Counts counts{.keystrokes = text_.wholeNumber()};
    text_.expect("\nWords:            ");
    text_.wholeNumber();
    text_.expect("\nWPM:              ");
    session.reported->wpm = text_.decimal();
    text_.expect("\nKSPC:             ");
    session.reported->kspc = counts.kspc = kspcOf(text_);
    const auto at = labelBetweenTexts(typed, label, counts);
    if (at == std::string_view::npos) texts.fail("\"Corrected: \" is missing");
    session.raw = rawTextOf(typed.substr(0, at), counts);
    session.finalText = finalTextOf(typed.substr(at + label.size()), counts);
  }

  LogCounts parseLogCounts(std::int64_t number) {
    LogCounts counts;
    text_.expect("\n\n[ Correction Metrics ]\nAuto-corrections: ");
    counts.automatic = text_.wholeNumber();
    text_.expect(number == 2 ? "\nCycle Key used:   " : "\nManual (chip):    ");
    counts.byHand = text_.wholeNumber();
    text_.expect("\nCorrection Rate:  ");
    text_.decimal();
    text_.expect("%\nNearby Key fixed: ");
    counts.nearby = text_.wholeNumber();
    text_.expect("\nRepeat Key fixed: ");
    counts.repeat = text_.wholeNumber();
    text_.expect("\nCorrect fixes:    ");
    counts.correct = text_.wholeNumber();
    text_.expect("\nIncorrect fixes:  ");
    counts.incorrect = text_.wholeNumber();
    return counts;
  }

  TextCursor text_;
};

}  // namespace

StudyReport parseReport(std::string_view contents, std::string_view name) {
  const auto mailed = unmailed(contents, "MirvaneTest — Session Results");
  if (!mailed) throw ReportError(std::string(name) + ":1: not a results report in UTF-8");
  try {
    return ReportParser(TextCursor(mailed->text, mailed->firstLine)).parse();
  } catch (const TextCursor::Mismatch& mismatch) {
    throw ReportError(std::string(name) + ":" + mismatch.what());
  }
}

}  // namespace mirvane
