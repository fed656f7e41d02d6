#include "recording/recorded_event.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace mirvane {
namespace {

using Kind = RecordedEvent::Kind;

constexpr std::array<std::pair<std::string_view, Kind>, 9> kinds{
    {{"down", Kind::down},
     {"up", Kind::up},
     {"flags", Kind::flags},
     {"pointer", Kind::pointer},
     {"activate", Kind::activate},
     {"chip", Kind::chip},
     {"reset", Kind::reset},
     {"done", Kind::done},
     {"correction", Kind::correction}}};

constexpr std::array<std::string_view, 5> correctionKinds{"auto-repeat", "auto-nearby",
                                                          "auto-other", "manual", "cycle"};

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

RecordedCorrection correctionOf(const JsonFields& fields) {
  constexpr auto most = std::numeric_limits<std::int64_t>::max();
  RecordedCorrection correction{
      required(fields.string("kind"), "kind"), required(fields.string("original"), "original"),
      required(fields.string("corrected"), "corrected"), fields.whole("wordIndex", 0, most),
      required(fields.number("confidence"), "confidence")};
  if (std::find(correctionKinds.begin(), correctionKinds.end(), correction.kind) ==
      correctionKinds.end()) {
    throw std::runtime_error("unknown kind of correction \"" + correction.kind + "\"");
  }
  if (!(correction.confidence >= 0 && correction.confidence <= 1)) {
    throw std::runtime_error("\"confidence\" is not a number from 0 to 1");
  }
  return correction;
}

void refuseUnknownFields(Kind kind, const JsonFields& fields) {
  switch (kind) {
    case Kind::down:
      return fields.refuseOthersThan({"session", "t", "type", "keyCode", "text", "flags"});
    case Kind::up:
      return fields.refuseOthersThan({"session", "t", "type", "keyCode"});
    case Kind::flags:
      return fields.refuseOthersThan({"session", "t", "type", "keyCode", "flags"});
    case Kind::activate:
      return fields.refuseOthersThan({"session", "t", "type", "app"});
    case Kind::chip:
      return fields.refuseOthersThan({"session", "t", "type", "index"});
    case Kind::done:
      return fields.refuseOthersThan({"session", "t", "type", "text"});
    case Kind::correction:
      return fields.refuseOthersThan(
          {"session", "t", "type", "kind", "original", "corrected", "wordIndex", "confidence"});
    case Kind::pointer:
    case Kind::reset:
      return fields.refuseOthersThan({"session", "t", "type"});
  }
}

void addTo(Json& json, const RecordedCorrection& correction) {
  json["kind"] = correction.kind;
  json["original"] = correction.original;
  json["corrected"] = correction.corrected;
  json["wordIndex"] = orNull(correction.wordIndex);
  json["confidence"] = correction.confidence;
}

void addFields(Json& json, const RecordedEvent& event) {
  json["t"] = event.t;
  json["type"] = nameOf(event.kind);
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
    case Kind::done:
      if (event.text) json["text"] = *event.text;
      break;
    case Kind::correction:
      addTo(json, event.correction);
      break;
    case Kind::pointer:
    case Kind::reset:
      break;
  }
}

/// What the keyboard sends need not be valid UTF-8; a damaged character is replaced.
std::string lineOf(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

RecordedEvent parseEvent(const JsonFields& fields) {
  RecordedEvent event;
  event.kind = kindNamed(required(fields.string("type"), "type"));
  event.t = required(fields.seconds("t"), "t");
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
    case Kind::correction:
      event.correction = correctionOf(fields);
      break;
    case Kind::pointer:
    case Kind::reset:
    case Kind::done:
      break;
  }
  return event;
}

}  // namespace

std::string_view nameOf(RecordedEvent::Kind kind) {
  return std::find_if(kinds.begin(), kinds.end(),
                      [&](const auto& entry) { return entry.second == kind; })
      ->first;
}

RecordedEvent parseSessionEvent(const JsonFields& fields) {
  auto event = parseEvent(fields);
  if (event.kind == Kind::correction) {
    throw std::runtime_error("unknown event type \"correction\"");
  }
  return event;
}

StudyEvent parseStudyEvent(const JsonFields& fields) {
  const auto session = required(fields.whole("session", 1, 2), "session");
  auto event = parseEvent(fields);
  refuseUnknownFields(event.kind, fields);
  if (event.kind == Kind::done) event.text = required(fields.string("text"), "text");
  return {session, std::move(event)};
}

std::string formatSessionEvent(const RecordedEvent& event) {
  Json json = Json::object();
  addFields(json, event);
  return lineOf(json);
}

std::string formatStudyEvent(const StudyEvent& event) {
  Json json{{"session", event.session}};
  addFields(json, event.event);
  return lineOf(json);
}

}  // namespace mirvane
