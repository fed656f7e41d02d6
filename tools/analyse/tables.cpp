#include "analyse/tables.h"

#include <algorithm>
#include <array>

namespace mirvane {
namespace {

/// A value that only a session in which something was typed has.
Cell ifTyped(const AnalysedSession& of, const Cell& value) {
  return of.analysis.isTyped() ? value : Cell();
}

/// A value that only a record tells.
Cell ifTimed(const AnalysedSession& of, const Cell& value) {
  return of.session.hasTimes ? value : Cell();
}

Cell reported(const AnalysedSession& of, Cell (*value)(const ReportedFigures& figures)) {
  return of.session.reported ? value(*of.session.reported) : Cell();
}

std::optional<double> typingTime(const Rhythm& rhythm) {
  if (!rhythm.first || !rhythm.last) return std::nullopt;
  return *rhythm.last - *rhythm.first;
}

using S = AnalysedSession;

const std::vector<Column<S>>& sessionColumns() {
  static const std::vector<Column<S>> columns{
      {"participant", [](const S& s) { return Cell(s.source.participant); }},
      {"session", [](const S& s) { return Cell(s.session.number); }},
      {"record", [](const S& s) { return Cell(s.source.recordFile); }},
      {"report", [](const S& s) { return Cell(s.source.reportFile); }},
      {"format", [](const S& s) { return cellOf(s.source.format); }},
      {"program", [](const S& s) { return cellOf(s.source.program); }},
      {"data", [](const S& s) { return cellOf(s.source.data); }},
      {"layout", [](const S& s) { return cellOf(s.source.layout); }},
      {"start", [](const S& s) { return cellOf(s.session.start); }},
      {"time_zone", [](const S& s) { return cellOf(s.source.timeZone); }},
      {"resets", [](const S& s) { return cellOf(s.session.resets); }},
      {"prompt", [](const S& s) { return Cell(s.session.prompt); }},
      {"raw", [](const S& s) { return Cell(s.session.raw); }},
      {"typed", [](const S& s) { return Cell(s.analysis.typed); }},
      {"final", [](const S& s) { return Cell(s.session.finalText); }},
      {"prompt_characters", [](const S& s) { return cellOf(s.analysis.promptCharacters); }},
      {"typed_characters", [](const S& s) { return cellOf(s.analysis.typedCharacters); }},
      {"final_characters", [](const S& s) { return cellOf(s.analysis.finalCharacters); }},
      {"keystrokes", [](const S& s) { return cellOf(s.session.keys.size()); }},
      {"backspaces", [](const S& s) { return cellOf(s.analysis.backspaces); }},
      {"held_repeats", [](const S& s) { return ifTimed(s, s.analysis.rhythm.heldRepeats); }},
      {"chips", [](const S& s) { return Cell(s.analysis.chips.all()); }},
      {"cycle_presses", [](const S& s) { return Cell(s.analysis.cycleSteps.all()); }},
      {"first_key_s", [](const S& s) { return cellOf(s.analysis.rhythm.first); }},
      {"last_key_s", [](const S& s) { return cellOf(s.analysis.rhythm.last); }},
      {"typing_s", [](const S& s) { return cellOf(typingTime(s.analysis.rhythm)); }},
      {"wpm", [](const S& s) { return cellOf(s.analysis.wpm); }},
      {"adjusted_wpm", [](const S& s) { return cellOf(s.analysis.adjustedWpm); }},
      {"typed_msd", [](const S& s) { return ifTyped(s, cellOf(s.analysis.typedErrors.distance)); }},
      {"typed_msd_error_rate",
       [](const S& s) { return ifTyped(s, cellOf(s.analysis.typedErrors.msd)); }},
      {"final_msd", [](const S& s) { return ifTyped(s, cellOf(s.analysis.finalErrors.distance)); }},
      {"final_msd_error_rate",
       [](const S& s) { return ifTyped(s, cellOf(s.analysis.finalErrors.msd)); }},
      {"erased_characters", [](const S& s) { return cellOf(s.analysis.erasedCharacters); }},
      {"replaced_characters", [](const S& s) { return cellOf(s.analysis.replacedCharacters); }},
      {"typed_correct",
       [](const S& s) { return ifTyped(s, cellOf(s.analysis.typedErrors.correct)); }},
      {"typed_corrected_error_rate",
       [](const S& s) { return ifTyped(s, cellOf(s.analysis.typedErrors.corrected)); }},
      {"typed_uncorrected_error_rate",
       [](const S& s) { return ifTyped(s, cellOf(s.analysis.typedErrors.uncorrected)); }},
      {"typed_total_error_rate",
       [](const S& s) { return ifTyped(s, cellOf(s.analysis.typedErrors.total)); }},
      {"final_correct",
       [](const S& s) { return ifTyped(s, cellOf(s.analysis.finalErrors.correct)); }},
      {"fixes", [](const S& s) { return Cell(s.analysis.fixes); }},
      {"final_corrected_error_rate",
       [](const S& s) { return ifTyped(s, cellOf(s.analysis.finalErrors.corrected)); }},
      {"final_uncorrected_error_rate",
       [](const S& s) { return ifTyped(s, cellOf(s.analysis.finalErrors.uncorrected)); }},
      {"final_total_error_rate",
       [](const S& s) { return ifTyped(s, cellOf(s.analysis.finalErrors.total)); }},
      {"kspc", [](const S& s) { return cellOf(s.analysis.kspc); }},
      {"prompt_words", [](const S& s) { return cellOf(s.analysis.promptWords); }},
      {"typed_words_right",
       [](const S& s) { return ifTyped(s, cellOf(s.analysis.typedWordsRight)); }},
      {"final_words_right",
       [](const S& s) { return ifTyped(s, cellOf(s.analysis.finalWordsRight)); }},
      {"words_fixed", [](const S& s) { return ifTyped(s, s.analysis.wordsFixed); }},
      {"words_broken", [](const S& s) { return ifTyped(s, s.analysis.wordsBroken); }},
      {"auto_corrections", [](const S& s) { return Cell(s.analysis.automatic.all()); }},
      {"auto_repeat", [](const S& s) { return Cell(s.analysis.autoRepeat); }},
      {"auto_nearby", [](const S& s) { return Cell(s.analysis.autoNearby); }},
      {"auto_other", [](const S& s) { return Cell(s.analysis.autoOther); }},
      {"auto_right", [](const S& s) { return Cell(s.analysis.automatic.right); }},
      {"auto_wrong", [](const S& s) { return Cell(s.analysis.automatic.wrong); }},
      {"auto_unknown", [](const S& s) { return Cell(s.analysis.automatic.unknown); }},
      {"precision", [](const S& s) { return cellOf(s.analysis.precision); }},
      {"chip_right", [](const S& s) { return Cell(s.analysis.chips.right); }},
      {"cycle_right", [](const S& s) { return Cell(s.analysis.cycleSteps.right); }},
      {"wrong_correction_cost_ms",
       [](const S& s) { return cellOf(s.analysis.wrongCorrectionCost); }},
      {"interval_median_ms", [](const S& s) { return cellOf(s.analysis.rhythm.intervals.median); }},
      {"interval_mean_ms", [](const S& s) { return cellOf(s.analysis.rhythm.intervals.mean); }},
      {"interval_sd_ms", [](const S& s) { return cellOf(s.analysis.rhythm.intervals.deviation); }},
      {"hold_median_ms", [](const S& s) { return cellOf(s.analysis.rhythm.holds.median); }},
      {"hold_mean_ms", [](const S& s) { return cellOf(s.analysis.rhythm.holds.mean); }},
      {"hold_sd_ms", [](const S& s) { return cellOf(s.analysis.rhythm.holds.deviation); }},
      {"hesitations", [](const S& s) { return ifTimed(s, s.analysis.rhythm.hesitations); }},
      {"repeats", [](const S& s) { return ifTimed(s, s.analysis.rhythm.repeats); }},
      {"final_reproduced", [](const S& s) { return Cell(s.analysis.isFinalReproduced); }},
      {"report_matches", [](const S& s) { return cellOf(s.session.reportMatches); }},
      {"report_elapsed_s",
       [](const S& s) { return reported(s, [](const auto& r) { return Cell(r.elapsed); }); }},
      {"report_wpm",
       [](const S& s) { return reported(s, [](const auto& r) { return Cell(r.wpm); }); }},
      {"report_kspc",
       [](const S& s) { return reported(s, [](const auto& r) { return cellOf(r.kspc); }); }},
      {"report_correct_fixes",
       [](const S& s) { return reported(s, [](const auto& r) { return Cell(r.correctFixes); }); }},
      {"report_incorrect_fixes", [](const S& s) {
         return reported(s, [](const auto& r) { return Cell(r.incorrectFixes); });
       }}};
  return columns;
}

/// A row of corrections.csv.
struct C {
  const AnalysedSession& of;
  std::size_t index;

  [[nodiscard]] const LoggedCorrection& logged() const { return of.session.corrections[index]; }
  [[nodiscard]] const CorrectionOutcome& outcome() const { return of.analysis.corrections[index]; }
};

Cell effectOf(const CorrectionOutcome& outcome) {
  if (!outcome.isRight || !outcome.wasRight) return {};
  if (*outcome.isRight) return std::string(*outcome.wasRight ? "same" : "fixed");
  return std::string(*outcome.wasRight ? "broken" : "wrong");
}

const std::vector<Column<C>>& correctionColumns() {
  static const std::vector<Column<C>> columns{
      {"participant", [](const C& c) { return Cell(c.of.source.participant); }},
      {"session", [](const C& c) { return Cell(c.of.session.number); }},
      {"number", [](const C& c) { return cellOf(c.index + 1); }},
      {"t_s", [](const C& c) { return cellOf(c.logged().t); }},
      {"kind", [](const C& c) { return Cell(c.logged().kind); }},
      {"original", [](const C& c) { return Cell(c.logged().original); }},
      {"corrected", [](const C& c) { return Cell(c.logged().corrected); }},
      {"word_index", [](const C& c) { return cellOf(c.logged().wordIndex); }},
      {"prompt_position",
       [](const C& c) {
         const auto& meant = c.outcome().meant;
         return meant ? cellOf(meant->position + 1) : Cell();
       }},
      {"prompt_word",
       [](const C& c) {
         const auto& meant = c.outcome().meant;
         return meant ? Cell(meant->asWritten) : Cell();
       }},
      {"right", [](const C& c) { return cellOf(c.outcome().isRight); }},
      {"right_before", [](const C& c) { return cellOf(c.outcome().wasRight); }},
      {"effect", [](const C& c) { return effectOf(c.outcome()); }},
      {"report_expected",
       [](const C& c) {
         const auto& verdict = c.logged().verdict;
         return verdict ? cellOf(verdict->expected) : Cell();
       }},
      {"report_right",
       [](const C& c) {
         const auto& verdict = c.logged().verdict;
         return verdict ? cellOf(verdict->isRight) : Cell();
       }},
      {"confidence",
       [](const C& c) { return c.logged().confidence > 0 ? Cell(c.logged().confidence) : Cell(); }},
      {"continued_ms", [](const C& c) { return cellOf(c.outcome().continued); }},
      {"cost_ms", [](const C& c) { return cellOf(c.of.analysis.costOf(c.outcome())); }}};
  return columns;
}

/// A row of keys.csv.
struct K {
  const AnalysedSession& of;
  const KeyPair& pair;

  [[nodiscard]] const TypedKey* key() const {
    return pair.key ? &of.session.keys[*pair.key] : nullptr;
  }
  [[nodiscard]] std::string typed() const { return pair.key ? key()->text : std::string(); }
};

const std::vector<Column<K>>& keyColumns() {
  static const std::vector<Column<K>> columns{
      {"participant", [](const K& k) { return Cell(k.of.source.participant); }},
      {"session", [](const K& k) { return Cell(k.of.session.number); }},
      {"number", [](const K& k) { return k.pair.key ? cellOf(*k.pair.key + 1) : Cell(); }},
      {"t_s", [](const K& k) { return k.key() != nullptr ? cellOf(k.key()->t) : Cell(); }},
      {"meant", [](const K& k) { return Cell(k.pair.meant); }},
      {"typed", [](const K& k) { return Cell(k.typed()); }},
      {"slip", [](const K& k) { return Cell(std::string(nameOf(k.pair.slip))); }},
      {"erased", [](const K& k) { return Cell(k.pair.isErased); }},
      {"gap_ms", [](const K& k) { return k.key() != nullptr ? cellOf(k.key()->gap) : Cell(); }},
      {"hold_ms", [](const K& k) { return k.key() != nullptr ? cellOf(k.key()->hold) : Cell(); }}};
  return columns;
}

constexpr std::array comparedMeasures{"wpm",
                                      "adjusted_wpm",
                                      "typed_msd_error_rate",
                                      "final_msd_error_rate",
                                      "final_corrected_error_rate",
                                      "final_uncorrected_error_rate",
                                      "final_total_error_rate",
                                      "kspc",
                                      "typed_words_right",
                                      "final_words_right",
                                      "words_fixed",
                                      "words_broken",
                                      "auto_corrections",
                                      "precision",
                                      "wrong_correction_cost_ms",
                                      "interval_median_ms",
                                      "hold_median_ms",
                                      "hesitations",
                                      "repeats"};

Table participantsTable() {
  Table table{"participants", {"participant", "record", "report", "sessions"}};
  for (const std::string measure : comparedMeasures) {
    table.columns.insert(table.columns.end(), {measure + "_1", measure + "_2"});
  }
  return table;
}

Cell measureOf(const std::vector<AnalysedSession>& sessions, std::int64_t number,
               std::string_view measure) {
  const auto session = std::find_if(sessions.begin(), sessions.end(), [&](const auto& s) {
    return s.session.number == number && s.analysis.isTyped();
  });
  if (session == sessions.end()) return {};
  const auto& columns = sessionColumns();
  const auto column = std::find_if(columns.begin(), columns.end(),
                                   [&](const auto& c) { return c.name == measure; });
  return column->value(*session);
}

/// The different names among them.
std::string fileNames(const std::vector<AnalysedSession>& sessions,
                      std::string SessionSource::*file) {
  std::vector<std::string> names;
  for (const auto& session : sessions) {
    const auto& name = session.source.*file;
    const bool isNew = std::find(names.begin(), names.end(), name) == names.end();
    if (!name.empty() && isNew) names.push_back(name);
  }
  std::string joined;
  for (const auto& name : names) joined += (joined.empty() ? "" : ";") + name;
  return joined;
}

}  // namespace

const std::vector<Table>& analysisTables() {
  static const std::vector<Table> tables{
      tableOf("sessions", sessionColumns()), tableOf("corrections", correctionColumns()),
      tableOf("keys", keyColumns()), participantsTable(),
      Table{"confusions", {"session", "meant", "typed", "count", "share"}}};
  return tables;
}

void writeSession(const AnalysedSession& session, TableWriter& writer) {
  const auto& tables = analysisTables();
  writer.write(tables[0], rowOf(session, sessionColumns()));
  for (std::size_t i = 0; i < session.session.corrections.size(); ++i) {
    writer.write(tables[1], rowOf(C{session, i}, correctionColumns()));
  }
  for (const auto& pair : session.analysis.keyPairs) {
    writer.write(tables[2], rowOf(K{session, pair}, keyColumns()));
  }
}

void writeParticipant(const std::vector<AnalysedSession>& sessions, TableWriter& writer) {
  const auto typed = std::count_if(sessions.begin(), sessions.end(),
                                   [](const auto& s) { return s.analysis.isTyped(); });
  std::vector<Cell> row{
      sessions.front().source.participant, fileNames(sessions, &SessionSource::recordFile),
      fileNames(sessions, &SessionSource::reportFile), static_cast<std::int64_t>(typed)};
  for (const std::string_view measure : comparedMeasures) {
    row.push_back(measureOf(sessions, 1, measure));
    row.push_back(measureOf(sessions, 2, measure));
  }
  writer.write(analysisTables()[3], row);
}

void Confusions::add(const AnalysedSession& session) {
  auto& counts = counts_[session.session.number];
  for (const auto& pair : session.analysis.keyPairs) {
    ++counts[{pair.meant, K{session, pair}.typed()}];
  }
}

void Confusions::write(TableWriter& writer) const {
  for (const auto& [session, counts] : counts_) {
    std::map<std::string_view, std::int64_t> allOfMeant;
    for (const auto& [pair, count] : counts) allOfMeant[pair.first] += count;
    for (const auto& [pair, count] : counts) {
      const auto all = static_cast<double>(allOfMeant[pair.first]);
      writer.write(analysisTables()[4],
                   {session, pair.first, pair.second, count, static_cast<double>(count) / all});
    }
  }
}

}  // namespace mirvane
