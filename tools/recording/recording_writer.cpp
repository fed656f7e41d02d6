#include "recording/recording_writer.h"

#include <nlohmann/json.hpp>

namespace mirvane {
namespace {

using Json = nlohmann::ordered_json;
using Kind = RecordedEvent::Kind;

Json eventJson(const RecordedEvent& event) {
  Json json{{"t", event.t}, {"type", nameOf(event.kind)}};
  switch (event.kind) {
    case Kind::down:
      json["keyCode"] = event.keyCode;
      if (event.text) json["text"] = *event.text;
      json["flags"] = event.flags;
      break;
    case Kind::up:
      json["keyCode"] = event.keyCode;
      break;
    case Kind::flags:
      json["keyCode"] = event.keyCode;
      json["flags"] = event.flags;
      break;
    case Kind::activate:
      json["app"] = event.app;
      break;
    case Kind::chip:
      json["index"] = event.index;
      break;
    case Kind::pointer:
    case Kind::reset:
    case Kind::done:
      break;
  }
  return json;
}

}  // namespace

std::string formatRecording(const Recording& recording) {
  const Json header{{"recording", 1}, {"session", recording.session}, {"prompt", recording.prompt}};
  std::string lines = header.dump() + '\n';
  for (const auto& event : recording.events) lines += eventJson(event).dump() + '\n';
  return lines;
}

}  // namespace mirvane
