#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "recording/json_fields.h"
#include "recording/recorded_event.h"

namespace mirvane {

/// The user's settings as recordings have them; what is absent has its default.
struct RecordedSettings {
  std::optional<bool> isAutoCorrectionEnabled = {};
  std::optional<std::vector<std::string>> allowList = {};
  std::optional<std::vector<std::string>> disabledAppBundleIDs = {};
  std::optional<std::string> frontmost = {};
};

/// Reads the object "settings" of a header of either version.
[[nodiscard]] RecordedSettings parseRecordedSettings(const JsonFields& fields);

/// A session of a study: when what happened. The fields are described in docs/formats/recording.md.
struct RecordedStudySession {
  using DateTime = std::chrono::system_clock::time_point;

  std::int64_t session = 1;  ///< 1 or 2
  DateTime start;            ///< second 0 of its events
  std::optional<double> origin = {};
  std::optional<DateTime> firstKey = {};
  std::optional<DateTime> lastKey = {};
  std::vector<DateTime> resets = {};
  std::optional<double> end = {};  ///< seconds; absent while the study goes on
};

/// The header of a recording of version 2.
struct StudyHeader {
  std::string program;
  std::optional<std::string> data = {};
  std::optional<std::string> participant = {};
  std::array<std::string, 2> prompts = {};
  std::optional<std::string> layout = {};
  RecordedSettings settings = {};
  std::optional<std::string> timeZone = {};
  std::vector<RecordedStudySession> sessions = {};
};

/// Both sessions of a study: a recording of version 2.
struct StudyRecording {
  StudyHeader header;
  std::vector<StudyEvent> events;
};

/// Reads and writes one entry of the header's "sessions".
[[nodiscard]] RecordedStudySession parseStudySession(const JsonFields& fields);
[[nodiscard]] Json studySessionJson(const RecordedStudySession& session);

/// The instant that stands in a field; throws for a text that is none.
[[nodiscard]] std::optional<RecordedStudySession::DateTime> instantAt(const JsonFields& fields,
                                                                      std::string_view key);

/// Reads a header of version 2. Throws a `std::runtime_error` that says what is wrong with it.
[[nodiscard]] StudyHeader parseStudyHeader(const JsonFields& fields);

/// Reads a recording of version 2; `name` stands for the file in messages. Throws a
/// `RecordingError` that names the first line it does not understand.
[[nodiscard]] StudyRecording parseStudyRecording(std::string_view contents, std::string_view name);

/// The header as a line, without the line feed.
[[nodiscard]] std::string formatStudyHeader(const StudyHeader& header);

/// The whole recording.
[[nodiscard]] std::string formatStudyRecording(const StudyRecording& recording);

}  // namespace mirvane
