#include "recording/recording.h"

#include "recording/recording_header.h"

namespace mirvane {

double Recording::endTime() const {
  if (end) return *end;
  return events.empty() ? 0 : events.back().t;
}

Recording parseRecording(std::string_view contents, std::string_view name) {
  std::optional<Recording> recording;
  forEachJsonLine(contents, name, [&](const JsonFields& fields) {
    if (recording) {
      recording->events.push_back(parseSessionEvent(fields));
    } else {
      recording = parseRecordingHeader(fields);
    }
  });
  if (!recording) throw RecordingError(std::string(name) + ":1: the recording is empty");
  return *std::move(recording);
}

Recording readRecording(const std::filesystem::path& file) {
  return parseRecording(contentsOfFile(file.string()), file.string());
}

}  // namespace mirvane
