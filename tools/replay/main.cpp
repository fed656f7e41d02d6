#include <unistd.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <string>
#include <vector>

#include "platform/simulated/virtual_clock.h"
#include "replay/study_replay.h"
#include "support/command_line.h"
#include "text/date_format.h"

namespace mirvane {
namespace {

struct Options {
  std::vector<std::string> files;
  std::string start = text::iso8601(simulated::VirtualClock::defaultStart);
  bool isJson = false;
  std::string traced;
};

void declare(CLI::App& app, Options& options) {
  app.add_option("recordings", options.files, "Recording of session 1 and, if any, of session 2")
      ->expected(1, 2);
  app.add_flag("--json", options.isJson, "Print texts, counters and logs as one JSON object");
  app.add_option("--start", options.start, "When the first session begins, as 2026-11-16T20:10:58Z")
      ->capture_default_str();
  app.add_option("--trace", options.traced,
                 "Print what the engine thinks after every event of this recording");
}

std::string run(const Options& options) {
  const auto start = text::parseIso8601(options.start);
  if (!start) throw UsageError("--start: not an instant such as 2026-11-16T20:10:58Z");
  ShippedResources shipped;
  if (!options.traced.empty()) {
    if (!options.files.empty()) throw UsageError("--trace takes one recording and no other");
    return traceOf(readRecording(options.traced), shipped, *start);
  }
  if (options.files.empty()) throw UsageError("no recording is named");
  std::vector<Recording> recordings;
  for (const auto& file : options.files) recordings.push_back(readRecording(file));
  if (recordings.size() == 2 && recordings[0].session == recordings[1].session) {
    throw UsageError("both recordings are of session " + std::to_string(recordings[0].session));
  }
  const auto study = replayStudy(recordings, shipped, *start);
  if (options.isJson) return jsonOf(study) + '\n';
  // A file gets the report as it is saved: nothing follows its last line.
  return reportOf(study) + (isatty(STDOUT_FILENO) != 0 ? "\n" : "");
}

}  // namespace
}  // namespace mirvane

int main(int argc, char** argv) {
  return mirvane::runCommand<mirvane::Options>(
      "Replays recorded typing sessions and prints the study's results report", mirvane::declare,
      mirvane::run, argc, argv);
}
