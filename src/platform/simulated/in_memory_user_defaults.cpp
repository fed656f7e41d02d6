#include "platform/simulated/in_memory_user_defaults.h"

#include <utility>

namespace mirvane::simulated {

std::optional<DefaultsValue> InMemoryUserDefaults::object(std::string_view key) const {
  const auto found = values_.find(key);
  if (found == values_.end()) return std::nullopt;
  return found->second;
}

void InMemoryUserDefaults::set(std::string_view key, DefaultsValue value) {
  preset(key, std::move(value));
  ++writes_[std::string(key)];
}

void InMemoryUserDefaults::preset(std::string_view key, DefaultsValue value) {
  values_.insert_or_assign(std::string(key), std::move(value));
}

int InMemoryUserDefaults::writeCount(std::string_view key) const {
  const auto found = writes_.find(key);
  return found == writes_.end() ? 0 : found->second;
}

}  // namespace mirvane::simulated
