#include "analyse/record_reader.h"

#include <chrono>

#include "analyse/key_collector.h"
#include "analyse/typing_course.h"
#include "recording/recording.h"
#include "recording/recording_lines.h"
#include "recording/study_recording.h"
#include "replay/recorded_session.h"
#include "text/date_format.h"

namespace mirvane {
namespace {

constexpr auto anyStart = simulated::VirtualClock::defaultStart;

/// The first line that is not blank; the versions begin with different headers.
bool isStudy(std::string_view contents) {
  const auto start = contents.find_first_not_of(" \t\r\n");
  if (start == std::string_view::npos) return false;
  const auto line = contents.substr(start, contents.find('\n', start) - start);
  const auto header = Json::parse(line, nullptr, false);
  return header.is_object() && header.value("recording", Json()) == Json(2);
}

LoggedCorrection logged(const RecordedEvent& event) {
  const auto& correction = event.correction;
  return {.kind = correction.kind,
          .original = correction.original,
          .corrected = correction.corrected,
          .wordIndex = correction.wordIndex,
          .confidence = correction.confidence,
          .t = event.t};
}

LoggedCorrection logged(const CorrectionEvent& event) {
  const std::chrono::duration<double> t = event.timestamp - anyStart;
  return {.kind = event.type,
          .original = event.originalWord,
          .corrected = event.correctedWord,
          .wordIndex = event.wordIndex,
          .confidence = event.confidence,
          .t = t.count()};
}

TypedSession sessionOf(const RecordedStudySession& recorded, const StudyRecording& study) {
  TypedSession session{
      .number = recorded.session,
      .prompt = study.header.prompts.at(static_cast<std::size_t>(recorded.session - 1)),
      .start = text::iso8601Milliseconds(recorded.start)};
  KeyCollector collector(session);
  std::optional<std::string> finalText;
  for (const auto& [number, event] : study.events) {
    if (number != recorded.session) continue;
    if (event.kind == RecordedEvent::Kind::correction) {
      collector.add(logged(event));
    } else {
      collector.add(event);
    }
    if (event.kind == RecordedEvent::Kind::done) finalText = event.text;
  }
  // A study that was broken off has no end to tell of.
  session.finalText = finalText ? *finalText : followTyping(session).text;
  return session;
}

StudyRecord readStudy(std::string_view contents, std::string_view name) {
  const auto study = parseStudyRecording(contents, name);
  StudyRecord record{.format = 2,
                     .participant = study.header.participant,
                     .program = study.header.program,
                     .data = study.header.data,
                     .layout = study.header.layout,
                     .timeZone = study.header.timeZone};
  for (const auto& session : study.header.sessions) {
    record.sessions.push_back(sessionOf(session, study));
  }
  return record;
}

TypedSession typedAgain(const Recording& recording, ShippedResources& shipped) {
  TypedSession session{.number = recording.session, .prompt = recording.prompt};
  KeyCollector collector(session);
  RecordedSession replay(recording, shipped, anyStart);
  const auto& log = replay.engine().measurements().correctionLog;
  for (const auto& event : recording.events) {
    replay.play(event);
    collector.add(event);
    for (auto i = session.corrections.size(); i < log.size(); ++i) collector.add(logged(log[i]));
  }
  session.finalText = replay.field().text();
  return session;
}

}  // namespace

StudyRecord parseRecord(std::string_view contents, std::string_view name,
                        ShippedResources& shipped) {
  if (isStudy(contents)) return readStudy(contents, name);
  const auto recording = parseRecording(contents, name);
  return {.format = 1, .sessions = {typedAgain(recording, shipped)}};
}

}  // namespace mirvane
