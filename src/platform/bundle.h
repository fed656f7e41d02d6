#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace mirvane {

/// The application's resources.
class Bundle {
 public:
  Bundle() = default;
  Bundle(const Bundle&) = delete;
  Bundle& operator=(const Bundle&) = delete;
  virtual ~Bundle() = default;

  /// Where the resource "name.extension" lies, in `subdirectory` or, when that is empty, at the
  /// top level; absent when there is none.
  [[nodiscard]] virtual std::optional<std::filesystem::path> pathForResource(
      std::string_view name, std::string_view extension,
      std::string_view subdirectory = {}) const = 0;

  /// The whole content of a path answered above; absent when it cannot be read.
  [[nodiscard]] virtual std::optional<std::string> contents(
      const std::filesystem::path& path) const = 0;
};

}  // namespace mirvane
