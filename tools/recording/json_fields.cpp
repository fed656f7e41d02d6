#include "recording/json_fields.h"

namespace mirvane {
namespace {

[[noreturn]] void fail(std::string_view key, std::string_view expected) {
  throw std::runtime_error("\"" + std::string(key) + "\" is not " + std::string(expected));
}

}  // namespace

double numberOf(const simdjson::dom::element& value, std::string_view key) {
  if (!value.is_number()) fail(key, "a number");
  return value.get_double().value();
}

std::string stringOf(const simdjson::dom::element& value, std::string_view key) {
  std::string_view text;
  if (value.get(text) != simdjson::SUCCESS) fail(key, "a text");
  return std::string(text);
}

std::vector<std::string> stringsOf(const simdjson::dom::element& value, std::string_view key) {
  simdjson::dom::array array;
  if (value.get(array) != simdjson::SUCCESS) fail(key, "a list of texts");
  std::vector<std::string> texts;
  for (const auto entry : array) texts.push_back(stringOf(entry, key));
  return texts;
}

std::optional<JsonFields::Element> JsonFields::find(std::string_view key) const {
  Element value;
  if (object_[key].get(value) != simdjson::SUCCESS) return std::nullopt;
  return value;
}

std::optional<std::string> JsonFields::string(std::string_view key) const {
  const auto value = find(key);
  if (!value) return std::nullopt;
  return stringOf(*value, key);
}

std::optional<bool> JsonFields::boolean(std::string_view key) const {
  const auto value = find(key);
  if (!value) return std::nullopt;
  bool boolean = false;
  if (value->get(boolean) != simdjson::SUCCESS) fail(key, "true or false");
  return boolean;
}

std::optional<double> JsonFields::number(std::string_view key) const {
  const auto value = find(key);
  if (!value) return std::nullopt;
  return numberOf(*value, key);
}

std::optional<std::int64_t> JsonFields::whole(std::string_view key, std::int64_t least,
                                              std::int64_t most) const {
  const auto value = find(key);
  if (!value) return std::nullopt;
  std::int64_t number = 0;
  if (value->get(number) != simdjson::SUCCESS || number < least || number > most) {
    fail(key, "a whole number from " + std::to_string(least) + " to " + std::to_string(most));
  }
  return number;
}

std::optional<std::vector<std::string>> JsonFields::strings(std::string_view key) const {
  const auto value = find(key);
  if (!value) return std::nullopt;
  return stringsOf(*value, key);
}

std::optional<JsonFields> JsonFields::object(std::string_view key) const {
  const auto value = find(key);
  if (!value) return std::nullopt;
  Object object;
  if (value->get(object) != simdjson::SUCCESS) fail(key, "an object");
  return JsonFields(object);
}

}  // namespace mirvane
