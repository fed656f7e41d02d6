#include "recording/study_recording.h"

#include <algorithm>
#include <utility>

#include "recording/recording_lines.h"
#include "text/date_format.h"

namespace mirvane {
namespace {

using DateTime = RecordedStudySession::DateTime;

constexpr std::int64_t formatVersion = 2;

DateTime instantOf(const std::string& text, std::string_view key) {
  const auto instant = text::parseIso8601(text);
  if (!instant) {
    throw std::runtime_error("\"" + std::string(key) +
                             "\" is not an instant such as 2026-11-16T20:10:58.250Z");
  }
  return *instant;
}

std::vector<RecordedStudySession> parseSessions(const JsonFields& fields) {
  if (fields.find("sessions") == nullptr) throw std::runtime_error("\"sessions\" is missing");
  std::vector<RecordedStudySession> sessions;
  for (const auto& entry : fields.objects("sessions")) sessions.push_back(parseStudySession(entry));
  const bool areInOrder = std::is_sorted(
      sessions.begin(), sessions.end(),
      [](const auto& left, const auto& right) { return left.session <= right.session; });
  if (!areInOrder) throw std::runtime_error("\"sessions\" does not name session 1, then session 2");
  return sessions;
}

std::array<std::string, 2> parsePrompts(const JsonFields& fields) {
  auto prompts = required(fields.strings("prompts"), "prompts");
  if (prompts.size() != 2) throw std::runtime_error("\"prompts\" is not a list of two texts");
  return {std::move(prompts[0]), std::move(prompts[1])};
}

Json settingsJson(const RecordedSettings& settings) {
  Json json = Json::object();
  if (settings.isAutoCorrectionEnabled) {
    json["isAutoCorrectionEnabled"] = *settings.isAutoCorrectionEnabled;
  }
  if (settings.allowList) json["allowList"] = *settings.allowList;
  if (settings.disabledAppBundleIDs) json["disabledAppBundleIDs"] = *settings.disabledAppBundleIDs;
  if (settings.frontmost) json["frontmost"] = *settings.frontmost;
  return json;
}

Json instantJson(const std::optional<DateTime>& instant) {
  return instant ? Json(text::iso8601Milliseconds(*instant)) : Json(nullptr);
}

}  // namespace

std::optional<DateTime> instantAt(const JsonFields& fields, std::string_view key) {
  const auto text = fields.string(key);
  if (!text) return std::nullopt;
  return instantOf(*text, key);
}

RecordedStudySession parseStudySession(const JsonFields& fields) {
  fields.refuseOthersThan({"session", "start", "origin", "firstKey", "lastKey", "resets", "end"});
  RecordedStudySession session{.session = required(fields.whole("session", 1, 2), "session"),
                               .start = required(instantAt(fields, "start"), "start"),
                               .origin = fields.seconds("origin"),
                               .firstKey = instantAt(fields, "firstKey"),
                               .lastKey = instantAt(fields, "lastKey"),
                               .resets = {},
                               .end = fields.seconds("end")};
  for (const auto& reset : fields.strings("resets").value_or(std::vector<std::string>{})) {
    session.resets.push_back(instantOf(reset, "resets"));
  }
  return session;
}

Json studySessionJson(const RecordedStudySession& session) {
  Json json{{"session", session.session}, {"start", text::iso8601Milliseconds(session.start)}};
  if (session.origin) json["origin"] = *session.origin;
  json["firstKey"] = instantJson(session.firstKey);
  json["lastKey"] = instantJson(session.lastKey);
  json["resets"] = Json::array();
  for (const auto reset : session.resets) json["resets"].push_back(instantJson(reset));
  if (session.end) json["end"] = *session.end;
  return json;
}

RecordedSettings parseRecordedSettings(const JsonFields& fields) {
  return {.isAutoCorrectionEnabled = fields.boolean("isAutoCorrectionEnabled"),
          .allowList = fields.strings("allowList"),
          .disabledAppBundleIDs = fields.strings("disabledAppBundleIDs"),
          .frontmost = fields.string("frontmost")};
}

StudyHeader parseStudyHeader(const JsonFields& fields) {
  static_cast<void>(required(fields.whole("recording", formatVersion, formatVersion), "recording"));
  fields.refuseOthersThan({"recording", "program", "data", "participant", "prompts", "layout",
                           "settings", "timeZone", "sessions"});
  StudyHeader header{.program = required(fields.string("program"), "program"),
                     .data = fields.string("data"),
                     .participant = fields.string("participant"),
                     .prompts = parsePrompts(fields),
                     .layout = fields.string("layout"),
                     .settings = {},
                     .timeZone = fields.string("timeZone"),
                     .sessions = parseSessions(fields)};
  if (const auto settings = fields.object("settings")) {
    settings->refuseOthersThan(
        {"isAutoCorrectionEnabled", "allowList", "disabledAppBundleIDs", "frontmost"});
    header.settings = parseRecordedSettings(*settings);
  }
  return header;
}

StudyRecording parseStudyRecording(std::string_view contents, std::string_view name) {
  std::optional<StudyRecording> recording;
  forEachJsonLine(contents, name, [&](const JsonFields& fields) {
    if (recording) {
      recording->events.push_back(parseStudyEvent(fields));
    } else {
      recording = StudyRecording{parseStudyHeader(fields), {}};
    }
  });
  if (!recording) throw RecordingError(std::string(name) + ":1: the recording is empty");
  return *std::move(recording);
}

std::string formatStudyHeader(const StudyHeader& header) {
  Json json{{"recording", formatVersion},
            {"program", header.program},
            {"data", orNull(header.data)},
            {"participant", orNull(header.participant)},
            {"prompts", header.prompts},
            {"layout", orNull(header.layout)},
            {"settings", settingsJson(header.settings)},
            {"timeZone", orNull(header.timeZone)},
            {"sessions", Json::array()}};
  for (const auto& session : header.sessions) json["sessions"].push_back(studySessionJson(session));
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string formatStudyRecording(const StudyRecording& recording) {
  std::string lines = formatStudyHeader(recording.header) + '\n';
  for (const auto& event : recording.events) lines += formatStudyEvent(event) + '\n';
  return lines;
}

}  // namespace mirvane
