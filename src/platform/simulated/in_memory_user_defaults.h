#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/user_defaults.h"

namespace mirvane::simulated {

class InMemoryUserDefaults : public UserDefaults {
 public:
  [[nodiscard]] std::optional<DefaultsValue> object(std::string_view key) const override;
  void set(std::string_view key, DefaultsValue value) override;

  /// Puts a value there as an earlier run would have left it: not counted as a write.
  void preset(std::string_view key, DefaultsValue value);
  /// How often `set` was called for this key.
  [[nodiscard]] int writeCount(std::string_view key) const;

 private:
  std::map<std::string, DefaultsValue, std::less<>> values_;
  std::map<std::string, int, std::less<>> writes_;
};

}  // namespace mirvane::simulated
