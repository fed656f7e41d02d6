#pragma once

#include <map>
#include <string>

#include "platform/user_defaults.h"

namespace mirvane {

/// Stored defaults of which some hold other values for this run: those are neither read from the
/// store nor written to it.
class OverriddenDefaults : public UserDefaults {
 public:
  using Values = std::map<std::string, DefaultsValue, std::less<>>;

  OverriddenDefaults(UserDefaults& stored, Values values);

  [[nodiscard]] std::optional<DefaultsValue> object(std::string_view key) const override;
  void set(std::string_view key, DefaultsValue value) override;

 private:
  UserDefaults& stored_;
  Values values_;
};

}  // namespace mirvane
