#include "model/typing_config.h"

#include <simdjson.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "text/canonical.h"
#include "text/characters.h"

namespace mirvane {
namespace {

using simdjson::dom::element;
using simdjson::dom::object;

void readNumber(const object& section, std::string_view key, double& field) {
  const auto value = section[key];
  if (value.is_number()) field = value.get_double().value();
}

void readWholeNumber(const object& section, std::string_view key, std::int64_t& field) {
  const auto value = section[key];
  if (!value.is_number()) return;
  if (value.is_int64()) {
    field = value.get_int64().value();
    return;
  }
  const double number = value.get_double().value();
  constexpr double limit = 9223372036854775808.0;  // 2^63
  if (std::trunc(number) == number && number >= -limit && number < limit) {
    field = static_cast<std::int64_t>(number);
  }
}

std::string firstCharacter(std::string_view key) {
  return std::string(text::characters(key).front());
}

/// Two keys that reduce to the same character: the later one wins.
template <typename Value>
void store(std::vector<std::pair<std::string, Value>>& map, std::string key, Value value) {
  const auto found = std::find_if(map.begin(), map.end(), [&](const auto& entry) {
    return text::sameCharacter(entry.first, key);
  });
  if (found != map.end()) {
    found->second = std::move(value);
  } else {
    map.emplace_back(std::move(key), std::move(value));
  }
}

/// Absent when any value is not a number.
std::optional<NearbyKeyRow> parseNearbyKeyRow(const element& value) {
  object entries;
  if (value.get(entries) != simdjson::SUCCESS) return std::nullopt;
  NearbyKeyRow row;
  for (const auto [key, probability] : entries) {
    if (!probability.is_number()) return std::nullopt;
    if (!key.empty()) store(row, firstCharacter(key), probability.get_double().value());
  }
  return row;
}

/// A single entry of another type anywhere empties the whole table.
NearbyKeyTable parseNearbyKeyTable(const object& root) {
  object rows;
  if (root["nearbyKeyMap"].get(rows) != simdjson::SUCCESS) return {};
  NearbyKeyTable table;
  for (const auto [key, value] : rows) {
    auto row = parseNearbyKeyRow(value);
    if (!row) return {};
    if (!key.empty()) store(table, firstCharacter(key), std::move(*row));
  }
  return table;
}

void readHoldTime(const object& root, HoldTimeStats& stats) {
  object section;
  if (root["holdTime"].get(section) != simdjson::SUCCESS) return;
  readNumber(section, "controlMedian", stats.controlMedian);
  readNumber(section, "pdMedian", stats.pdMedian);
  readNumber(section, "boundary", stats.boundary);
  readWholeNumber(section, "minSamplesForPersonalBaseline", stats.minSamplesForPersonalBaseline);
}

void readMotorPriorWeights(const object& root, MotorPriorWeights& weights) {
  object section;
  if (root["motorPriorWeights"].get(section) != simdjson::SUCCESS) return;
  readNumber(section, "motorBoost", weights.motorBoost);
  readNumber(section, "phoneticDamp", weights.phoneticDamp);
}

void readAutoApplyThreshold(const object& root, AutoApplyThreshold& threshold) {
  object section;
  if (root["autoApplyThreshold"].get(section) != simdjson::SUCCESS) return;
  readNumber(section, "default", threshold.defaultValue);
  readNumber(section, "min", threshold.min);
  readNumber(section, "max", threshold.max);
}

}  // namespace

TypingConfig parseTypingConfig(std::string_view json) {
  TypingConfig config;
  simdjson::dom::parser parser;
  object root;
  if (parser.parse(simdjson::padded_string(json)).get(root) != simdjson::SUCCESS) return config;
  readNumber(root, "maxInputGap", config.maxInputGap);
  readNumber(root, "hesitationThreshold", config.hesitationThreshold);
  readWholeNumber(root, "minimumRepeatCount", config.minimumRepeatCount);
  config.nearbyKeyProbabilities = parseNearbyKeyTable(root);
  readHoldTime(root, config.holdTime);
  readMotorPriorWeights(root, config.motorPriorWeights);
  readAutoApplyThreshold(root, config.autoApplyThreshold);
  return config;
}

TypingConfig loadTypingConfig(const Bundle& bundle) {
  const auto path = bundle.pathForResource("typing_parameters", "json");
  if (!path) return {};
  const auto json = bundle.contents(*path);
  return json ? parseTypingConfig(*json) : TypingConfig{};
}

}  // namespace mirvane
