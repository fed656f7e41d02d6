#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace mirvane {

/// A stored value; it comes back with the type it was stored with.
struct DefaultsValue {
  std::variant<bool, double, std::string, std::vector<DefaultsValue>> value;

  bool operator==(const DefaultsValue&) const = default;
};

/// The user's settings of this application, kept between runs.
class UserDefaults {
 public:
  UserDefaults() = default;
  UserDefaults(const UserDefaults&) = delete;
  UserDefaults& operator=(const UserDefaults&) = delete;
  virtual ~UserDefaults() = default;

  [[nodiscard]] virtual std::optional<DefaultsValue> object(std::string_view key) const = 0;

  /// Stores at once. A store that cannot be written keeps the value for this run.
  virtual void set(std::string_view key, DefaultsValue value) = 0;
};

}  // namespace mirvane
