#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/bundle.h"

namespace mirvane::simulated {

/// Resources by their path within the bundle, such as "Vocabulary/base_unigrams.json".
class InMemoryBundle : public Bundle {
 public:
  void add(std::string_view path, std::string contents);
  /// The resource is there, but reading it fails.
  void addUnreadable(std::string_view path);

  [[nodiscard]] std::optional<std::filesystem::path> pathForResource(
      std::string_view name, std::string_view extension,
      std::string_view subdirectory = {}) const override;
  [[nodiscard]] std::optional<std::string> contents(
      const std::filesystem::path& path) const override;

 private:
  std::map<std::string, std::optional<std::string>, std::less<>> resources_;
};

}  // namespace mirvane::simulated
