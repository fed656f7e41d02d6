#include "recording/recording.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <limits>

#include "recording/json_fields.h"
#include "recording/recording_header.h"

namespace mirvane {
namespace {

using Kind = RecordedEvent::Kind;

constexpr std::array<std::pair<std::string_view, Kind>, 8> kinds{{{"down", Kind::down},
                                                                  {"up", Kind::up},
                                                                  {"flags", Kind::flags},
                                                                  {"pointer", Kind::pointer},
                                                                  {"activate", Kind::activate},
                                                                  {"chip", Kind::chip},
                                                                  {"reset", Kind::reset},
                                                                  {"done", Kind::done}}};

Kind kindNamed(const std::string& name) {
  const auto* const found = std::find_if(kinds.begin(), kinds.end(),
                                         [&](const auto& entry) { return entry.first == name; });
  if (found == kinds.end()) throw std::runtime_error("unknown event type \"" + name + "\"");
  return found->second;
}

std::uint16_t keyCodeOf(const JsonFields& fields) {
  return static_cast<std::uint16_t>(required(fields.whole("keyCode", 0, 0xFFFF), "keyCode"));
}

std::uint64_t flagsOf(const JsonFields& fields) {
  constexpr auto most = std::numeric_limits<std::int64_t>::max();
  return static_cast<std::uint64_t>(fields.whole("flags", 0, most).value_or(0));
}

RecordedEvent parseEvent(const JsonFields& fields) {
  RecordedEvent event;
  event.kind = kindNamed(required(fields.string("type"), "type"));
  event.t = required(fields.number("t"), "t");
  switch (event.kind) {
    case Kind::down:
      event.keyCode = keyCodeOf(fields);
      event.text = fields.string("text");
      event.flags = flagsOf(fields);
      break;
    case Kind::up:
      event.keyCode = keyCodeOf(fields);
      break;
    case Kind::flags:
      event.keyCode = keyCodeOf(fields);
      event.flags = flagsOf(fields);
      break;
    case Kind::activate:
      event.app = required(fields.string("app"), "app");
      break;
    case Kind::chip:
      event.index = static_cast<std::size_t>(required(fields.whole("index", 0, 2), "index"));
      break;
    case Kind::pointer:
    case Kind::reset:
    case Kind::done:
      break;
  }
  return event;
}

JsonFields parseLine(simdjson::dom::parser& parser, std::string_view line) {
  simdjson::dom::object object;
  const auto error = parser.parse(simdjson::padded_string(line)).get(object);
  if (error == simdjson::INCORRECT_TYPE) throw std::runtime_error("not a JSON object");
  if (error != simdjson::SUCCESS) throw std::runtime_error("not valid JSON");
  return JsonFields(object);
}

bool isBlank(std::string_view line) {
  return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

/// Calls `visit` with every line and its number, from 1.
template <typename Visit>
void forEachLine(std::string_view contents, Visit visit) {
  for (std::size_t number = 1; !contents.empty(); ++number) {
    const auto end = std::min(contents.find('\n'), contents.size());
    visit(contents.substr(0, end), number);
    contents.remove_prefix(std::min(end + 1, contents.size()));
  }
}

}  // namespace

std::string_view nameOf(RecordedEvent::Kind kind) {
  return std::find_if(kinds.begin(), kinds.end(),
                      [&](const auto& entry) { return entry.second == kind; })
      ->first;
}

double Recording::endTime() const {
  if (end) return *end;
  return events.empty() ? 0 : events.back().t;
}

Recording parseRecording(std::string_view contents, std::string_view name) {
  simdjson::dom::parser parser;
  std::optional<Recording> recording;
  forEachLine(contents, [&](std::string_view line, std::size_t number) {
    if (isBlank(line)) return;
    try {
      const auto fields = parseLine(parser, line);
      if (recording) {
        recording->events.push_back(parseEvent(fields));
      } else {
        recording = parseRecordingHeader(fields);
      }
    } catch (const std::runtime_error& error) {
      throw RecordingError(std::string(name) + ":" + std::to_string(number) + ": " + error.what());
    }
  });
  if (!recording) throw RecordingError(std::string(name) + ":1: the recording is empty");
  return *std::move(recording);
}

Recording readRecording(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const bool isReadable = stream && !std::filesystem::is_directory(file);
  if (!isReadable) throw RecordingError(file.string() + ": cannot be read");
  const std::string contents{std::istreambuf_iterator<char>(stream),
                             std::istreambuf_iterator<char>()};
  return parseRecording(contents, file.string());
}

}  // namespace mirvane
