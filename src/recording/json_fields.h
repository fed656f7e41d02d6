#pragma once

#include <cstdint>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace mirvane {

/// JSON whose fields keep the order of the file.
using Json = nlohmann::ordered_json;

/// Typed access to the fields of a JSON object, which must outlive this view of it. A field of
/// another type is a damaged line: it throws a `std::runtime_error` that names the field.
class JsonFields {
 public:
  /// Over 30 years: what goes beyond is not seconds.
  static constexpr double mostSeconds = 1e9;

  /// Throws for a value that is not an object.
  explicit JsonFields(const Json& object);

  /// Null when the field is missing.
  [[nodiscard]] const Json* find(std::string_view key) const;

  // The others take null for a missing field too.
  [[nodiscard]] std::optional<std::string> string(std::string_view key) const;
  [[nodiscard]] std::optional<bool> boolean(std::string_view key) const;
  [[nodiscard]] std::optional<double> number(std::string_view key) const;
  /// A number from 0 to `mostSeconds`.
  [[nodiscard]] std::optional<double> seconds(std::string_view key) const;
  /// A whole number from `least` to `most`.
  [[nodiscard]] std::optional<std::int64_t> whole(std::string_view key, std::int64_t least,
                                                  std::int64_t most) const;
  [[nodiscard]] std::optional<std::vector<std::string>> strings(std::string_view key) const;
  [[nodiscard]] std::optional<JsonFields> object(std::string_view key) const;
  /// Every entry of a list of objects; none when the field is missing.
  [[nodiscard]] std::vector<JsonFields> objects(std::string_view key) const;

  /// Throws for the first field that is not among these.
  void refuseOthersThan(std::initializer_list<std::string_view> known) const;

  /// Every field, in file order.
  template <typename Visit>
  void forEach(Visit visit) const {
    for (const auto& [key, value] : object_->items()) visit(key, value);
  }

 private:
  [[nodiscard]] const Json* findValue(std::string_view key) const;

  const Json* object_;
};

/// The value of a field that has to be there.
template <typename T>
T required(std::optional<T> value, std::string_view key) {
  if (!value) throw std::runtime_error("\"" + std::string(key) + "\" is missing");
  return *std::move(value);
}

[[nodiscard]] double numberOf(const Json& value, std::string_view key);
[[nodiscard]] std::string stringOf(const Json& value, std::string_view key);
[[nodiscard]] std::vector<std::string> stringsOf(const Json& value, std::string_view key);

/// A value or null.
template <typename T>
[[nodiscard]] Json orNull(const std::optional<T>& value) {
  return value ? Json(*value) : Json(nullptr);
}

}  // namespace mirvane
