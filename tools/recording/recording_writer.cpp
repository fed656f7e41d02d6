#include "recording/recording_writer.h"

namespace mirvane {

std::string formatRecording(const Recording& recording) {
  const Json header{{"recording", 1}, {"session", recording.session}, {"prompt", recording.prompt}};
  std::string lines = header.dump() + '\n';
  for (const auto& event : recording.events) lines += formatSessionEvent(event) + '\n';
  return lines;
}

}  // namespace mirvane
