#pragma once

#include <simdjson.h>

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace mirvane {

/// Typed access to the fields of a JSON object. A field of another type is a damaged line: it
/// throws a `std::runtime_error` that names the field.
class JsonFields {
 public:
  using Element = simdjson::dom::element;
  using Object = simdjson::dom::object;

  explicit JsonFields(Object object) : object_(object) {}

  /// Absent when the field is missing.
  [[nodiscard]] std::optional<Element> find(std::string_view key) const;
  [[nodiscard]] std::optional<std::string> string(std::string_view key) const;
  [[nodiscard]] std::optional<bool> boolean(std::string_view key) const;
  [[nodiscard]] std::optional<double> number(std::string_view key) const;
  /// A whole number from `least` to `most`.
  [[nodiscard]] std::optional<std::int64_t> whole(std::string_view key, std::int64_t least,
                                                  std::int64_t most) const;
  [[nodiscard]] std::optional<std::vector<std::string>> strings(std::string_view key) const;
  [[nodiscard]] std::optional<JsonFields> object(std::string_view key) const;

  /// Every field, in file order.
  template <typename Visit>
  void forEach(Visit visit) const {
    for (const auto [key, value] : object_) visit(key, value);
  }

 private:
  Object object_;
};

/// The value of a field that has to be there.
template <typename T>
T required(std::optional<T> value, std::string_view key) {
  if (!value) throw std::runtime_error("\"" + std::string(key) + "\" is missing");
  return *std::move(value);
}

[[nodiscard]] double numberOf(const simdjson::dom::element& value, std::string_view key);
[[nodiscard]] std::string stringOf(const simdjson::dom::element& value, std::string_view key);
[[nodiscard]] std::vector<std::string> stringsOf(const simdjson::dom::element& value,
                                                 std::string_view key);

}  // namespace mirvane
