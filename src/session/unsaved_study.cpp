#include "session/unsaved_study.h"

#include <algorithm>
#include <utility>

#include "recording/recording_lines.h"
#include "text/date_format.h"

namespace mirvane {
namespace {

using State = CorrectionEngine::State;
using Measurements = CorrectionEngine::Measurements;
using CycleRecord = SuggestionCycler::Record;

constexpr std::int64_t formatVersion = 1;
constexpr std::int64_t most = INT64_MAX;
// The raw values of the steps from the first session to the results.
constexpr std::int64_t firstKeptStep = 2, lastStep = 4;

struct Counter {
  const char* name;
  std::int64_t Measurements::*value;
};
constexpr std::array<Counter, 7> counters{{
    {"keystrokeCount", &Measurements::keystrokeCount},
    {"wordsCompleted", &Measurements::wordsCompleted},
    {"autoCorrectionCount", &Measurements::autoCorrectionCount},
    {"manualCorrectionCount", &Measurements::manualCorrectionCount},
    {"cycleKeyCount", &Measurements::cycleKeyCount},
    {"nearbyKeyCount", &Measurements::nearbyKeyCount},
    {"repeatKeyCount", &Measurements::repeatKeyCount},
}};

std::string lineOf(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

bool isContinuationByte(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// How much both have in common, in bytes and whole scalars.
std::size_t commonLength(const std::string& before, const std::string& after) {
  const auto parting =
      std::mismatch(before.begin(), before.end(), after.begin(), after.end()).second;
  auto length = static_cast<std::size_t>(parting - after.begin());
  while (length > 0 && length < after.size() && isContinuationByte(after[length])) --length;
  return length;
}

/// A text as what has changed: it is cut to `from` bytes, and `added` comes behind.
Json changeJson(const std::string& before, const std::string& after) {
  const auto from = commonLength(before, after);
  return {{"from", from}, {"added", after.substr(from)}};
}

Json entryJson(const CorrectionEvent& event) {
  return {{"at", text::iso8601Milliseconds(event.timestamp)},
          {"type", event.type},
          {"original", event.originalWord},
          {"corrected", event.correctedWord},
          {"confidence", event.confidence},
          {"wordIndex", orNull(event.wordIndex)}};
}

/// A log only grows, or begins anew with the session.
Json logJson(const State* before, const State& after) {
  const auto& log = after.measurements.correctionLog;
  const bool hasGrown = before != nullptr && before->sessionStart == after.sessionStart;
  const auto from = hasGrown ? before->measurements.correctionLog.size() : 0;
  Json json{{"from", from}, {"added", Json::array()}};
  for (auto i = from; i < log.size(); ++i) json["added"].push_back(entryJson(log[i]));
  return json;
}

Json cycleJson(const std::optional<CycleRecord>& record) {
  if (!record) return nullptr;
  Json json{{"originalWord", record->originalWord},
            {"candidates", record->candidates},
            {"currentIndex", orNull(record->currentIndex)},
            {"currentText", record->currentText},
            {"boundaryCharacter", record->boundaryCharacter}};
  if (const auto& target = record->axTarget) {
    json["target"] = {{"location", target->range.location},
                      {"length", target->range.length},
                      {"caretAfter", orNull(target->caretAfter)}};
  }
  return json;
}

Json countsJson(const Measurements& measured) {
  Json json = Json::object();
  for (const auto& counter : counters) json[counter.name] = measured.*counter.value;
  return json;
}

Json sessionJson(const UnsavedSession* before, const UnsavedSession& after) {
  const std::string none;
  return {
      {"times", studySessionJson(after.times)},
      {"seconds", after.seconds},
      {"sessionStart", text::iso8601Milliseconds(after.state.sessionStart)},
      {"elapsed", after.state.elapsed},
      {"typedText", changeJson(before == nullptr ? none : before->typedText, after.typedText)},
      {"rawInputLog", changeJson(before == nullptr ? none : before->state.measurements.rawInputLog,
                                 after.state.measurements.rawInputLog)},
      {"counts", countsJson(after.state.measurements)},
      {"log", logJson(before == nullptr ? nullptr : &before->state, after.state)},
      {"cycled", cycleJson(after.state.cycled)}};
}

std::size_t lengthAt(const JsonFields& fields, std::string_view key, std::size_t longest) {
  return static_cast<std::size_t>(
      required(fields.whole(key, 0, static_cast<std::int64_t>(longest)), key));
}

void change(std::string& text, const JsonFields& fields) {
  text.resize(lengthAt(fields, "from", text.size()));
  text += required(fields.string("added"), "added");
}

CorrectionEvent parseEntry(const JsonFields& fields) {
  return {required(instantAt(fields, "at"), "at"),
          required(fields.string("original"), "original"),
          required(fields.string("corrected"), "corrected"),
          required(fields.string("type"), "type"),
          required(fields.number("confidence"), "confidence"),
          fields.whole("wordIndex", 0, most)};
}

void changeLog(std::vector<CorrectionEvent>& log, const JsonFields& fields) {
  log.resize(lengthAt(fields, "from", log.size()));
  for (const auto& entry : fields.objects("added")) log.push_back(parseEntry(entry));
}

AXReplacementTarget parseTarget(const JsonFields& fields) {
  return {nullptr,
          {required(fields.whole("location", 0, most), "location"),
           required(fields.whole("length", 0, most), "length")},
          fields.whole("caretAfter", 0, most)};
}

CycleRecord parseCycle(const JsonFields& fields) {
  CycleRecord record{
      .originalWord = required(fields.string("originalWord"), "originalWord"),
      .candidates = required(fields.strings("candidates"), "candidates"),
      .currentIndex = {},
      .currentText = required(fields.string("currentText"), "currentText"),
      .boundaryCharacter = required(fields.string("boundaryCharacter"), "boundaryCharacter"),
      .axTarget = {}};
  const auto last = static_cast<std::int64_t>(record.candidates.size()) - 1;
  if (const auto index = fields.whole("currentIndex", 0, last)) {
    record.currentIndex = static_cast<std::size_t>(*index);
  }
  if (const auto target = fields.object("target")) record.axTarget = parseTarget(*target);
  return record;
}

void changeSession(UnsavedSession& session, const JsonFields& fields) {
  auto& measured = session.state.measurements;
  session.times = parseStudySession(required(fields.object("times"), "times"));
  session.seconds = required(fields.seconds("seconds"), "seconds");
  session.state.sessionStart = required(instantAt(fields, "sessionStart"), "sessionStart");
  session.state.elapsed = required(fields.seconds("elapsed"), "elapsed");
  change(session.typedText, required(fields.object("typedText"), "typedText"));
  change(measured.rawInputLog, required(fields.object("rawInputLog"), "rawInputLog"));
  const auto counts = required(fields.object("counts"), "counts");
  for (const auto& counter : counters) {
    measured.*counter.value = required(counts.whole(counter.name, 0, most), counter.name);
  }
  changeLog(measured.correctionLog, required(fields.object("log"), "log"));
  const auto cycled = fields.object("cycled");
  session.state.cycled = cycled ? std::optional(parseCycle(*cycled)) : std::nullopt;
}

void changeStudy(UnsavedStudy& study, const JsonFields& fields) {
  const auto sessions = fields.objects("sessions");
  if (sessions.size() != study.sessions.size()) throw std::runtime_error("not two sessions");
  study.savedAt = required(instantAt(fields, "savedAt"), "savedAt");
  study.step = required(fields.whole("step", firstKeptStep, lastStep), "step");
  for (std::size_t i = 0; i < sessions.size(); ++i) changeSession(study.sessions[i], sessions[i]);
}

/// Reads the journal line by line. After every state `journal` is whole.
class Reading {
 public:
  /// Throws for a line that is not understood.
  void read(const JsonFields& fields, std::size_t end) {
    switch (lines_++) {
      case 0:
        static_cast<void>(
            required(fields.whole("journal", formatVersion, formatVersion), "journal"));
        break;
      case 1:
        header_ = parseStudyHeader(fields);
        break;
      default:
        readLater(fields, end);
    }
  }

  [[nodiscard]] std::optional<Journal> whole() && { return std::move(whole_); }

 private:
  void readLater(const JsonFields& fields, std::size_t end) {
    const auto state = fields.object("state");
    if (!state) {
      events_.push_back(parseStudyEvent(fields));
      return;
    }
    changeStudy(study_, *state);
    if (!whole_) whole_ = Journal{.header = header_};
    whole_->study = study_;
    whole_->events.insert(whole_->events.end(), events_.begin(), events_.end());
    whole_->size = end;
    events_.clear();
  }

  std::size_t lines_ = 0;
  StudyHeader header_;
  UnsavedStudy study_;
  std::vector<StudyEvent> events_;
  std::optional<Journal> whole_;
};

}  // namespace

std::string JournalLines::beginning(const StudyHeader& header) {
  return lineOf({{"journal", formatVersion}}) + formatStudyHeader(header) + '\n';
}

std::string JournalLines::next(const std::vector<StudyEvent>& events,
                               const UnsavedStudy& study) const {
  std::string lines;
  for (const auto& event : events) lines += formatStudyEvent(event) + '\n';
  Json sessions = Json::array();
  for (std::size_t i = 0; i < study.sessions.size(); ++i) {
    sessions.push_back(sessionJson(last_ ? &last_->sessions.at(i) : nullptr, study.sessions.at(i)));
  }
  return lines + lineOf({{"state",
                          {{"savedAt", text::iso8601Milliseconds(study.savedAt)},
                           {"step", study.step},
                           {"sessions", std::move(sessions)}}}});
}

std::optional<Journal> parseJournal(std::string_view contents) {
  Reading reading;
  bool isDamaged = false;
  std::size_t end = 0;
  try {
    // Without its line feed the last line may be torn.
    for (auto feed = contents.find('\n'); feed != std::string_view::npos;
         feed = contents.find('\n', end)) {
      const auto json = parseJsonLine(contents.substr(end, feed - end));
      end = feed + 1;
      reading.read(JsonFields(json), end);
    }
  } catch (const std::runtime_error&) {
    isDamaged = true;
  }
  auto journal = std::move(reading).whole();
  if (journal) journal->isDamaged = isDamaged;
  return journal;
}

}  // namespace mirvane
