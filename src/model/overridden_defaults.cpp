#include "model/overridden_defaults.h"

#include <utility>

namespace mirvane {

OverriddenDefaults::OverriddenDefaults(UserDefaults& stored, Values values)
    : stored_(stored), values_(std::move(values)) {}

std::optional<DefaultsValue> OverriddenDefaults::object(std::string_view key) const {
  const auto found = values_.find(key);
  return found == values_.end() ? stored_.object(key) : found->second;
}

void OverriddenDefaults::set(std::string_view key, DefaultsValue value) {
  const auto found = values_.find(key);
  if (found == values_.end()) {
    stored_.set(key, std::move(value));
  } else {
    found->second = std::move(value);
  }
}

}  // namespace mirvane
