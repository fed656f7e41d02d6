#include "recording/json_fields.h"

#include <algorithm>

namespace mirvane {
namespace {

[[noreturn]] void fail(std::string_view key, std::string_view expected) {
  throw std::runtime_error("\"" + std::string(key) + "\" is not " + std::string(expected));
}

}  // namespace

double numberOf(const Json& value, std::string_view key) {
  if (!value.is_number()) fail(key, "a number");
  return value.get<double>();
}

std::string stringOf(const Json& value, std::string_view key) {
  if (!value.is_string()) fail(key, "a text");
  return value.get<std::string>();
}

std::vector<std::string> stringsOf(const Json& value, std::string_view key) {
  if (!value.is_array()) fail(key, "a list of texts");
  std::vector<std::string> texts;
  for (const auto& entry : value) texts.push_back(stringOf(entry, key));
  return texts;
}

JsonFields::JsonFields(const Json& object) : object_(&object) {
  if (!object.is_object()) throw std::runtime_error("not a JSON object");
}

const Json* JsonFields::find(std::string_view key) const {
  const auto found = object_->find(std::string(key));
  return found == object_->end() ? nullptr : &*found;
}

const Json* JsonFields::findValue(std::string_view key) const {
  const auto* const value = find(key);
  return value != nullptr && value->is_null() ? nullptr : value;
}

std::optional<std::string> JsonFields::string(std::string_view key) const {
  const auto* const value = findValue(key);
  if (value == nullptr) return std::nullopt;
  return stringOf(*value, key);
}

std::optional<bool> JsonFields::boolean(std::string_view key) const {
  const auto* const value = findValue(key);
  if (value == nullptr) return std::nullopt;
  if (!value->is_boolean()) fail(key, "true or false");
  return value->get<bool>();
}

std::optional<double> JsonFields::number(std::string_view key) const {
  const auto* const value = findValue(key);
  if (value == nullptr) return std::nullopt;
  return numberOf(*value, key);
}

std::optional<double> JsonFields::seconds(std::string_view key) const {
  const auto value = number(key);
  if (value && !(*value >= 0 && *value <= mostSeconds)) fail(key, "a number of seconds from 0 on");
  return value;
}

std::optional<std::int64_t> JsonFields::whole(std::string_view key, std::int64_t least,
                                              std::int64_t most) const {
  const auto* const value = findValue(key);
  if (value == nullptr) return std::nullopt;
  // Above the signed range the number would come out as another one.
  const bool isSigned = value->is_number_integer() &&
                        (!value->is_number_unsigned() || value->get<std::uint64_t>() <= INT64_MAX);
  const auto number = isSigned ? value->get<std::int64_t>() : 0;
  if (!isSigned || number < least || number > most) {
    fail(key, "a whole number from " + std::to_string(least) + " to " + std::to_string(most));
  }
  return number;
}

std::optional<std::vector<std::string>> JsonFields::strings(std::string_view key) const {
  const auto* const value = findValue(key);
  if (value == nullptr) return std::nullopt;
  return stringsOf(*value, key);
}

std::optional<JsonFields> JsonFields::object(std::string_view key) const {
  const auto* const value = findValue(key);
  if (value == nullptr) return std::nullopt;
  if (!value->is_object()) fail(key, "an object");
  return JsonFields(*value);
}

std::vector<JsonFields> JsonFields::objects(std::string_view key) const {
  std::vector<JsonFields> objects;
  const auto* const value = findValue(key);
  if (value == nullptr) return objects;
  if (!value->is_array()) fail(key, "a list of objects");
  for (const auto& entry : *value) {
    if (!entry.is_object()) fail(key, "a list of objects");
    objects.emplace_back(entry);
  }
  return objects;
}

void JsonFields::refuseOthersThan(std::initializer_list<std::string_view> known) const {
  for (const auto& [key, value] : object_->items()) {
    if (std::find(known.begin(), known.end(), key) == known.end()) {
      throw std::runtime_error("unknown field \"" + key + "\"");
    }
  }
}

}  // namespace mirvane
