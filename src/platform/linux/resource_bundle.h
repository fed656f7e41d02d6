#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/bundle.h"

namespace mirvane {

/// The resources of a folder.
class ResourceBundle : public Bundle {
 public:
  explicit ResourceBundle(std::filesystem::path folder) : folder_(std::move(folder)) {}

  [[nodiscard]] std::optional<std::filesystem::path> pathForResource(
      std::string_view name, std::string_view extension,
      std::string_view subdirectory = {}) const override;
  [[nodiscard]] std::optional<std::string> contents(
      const std::filesystem::path& path) const override;

  [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }

 private:
  std::filesystem::path folder_;
};

/// Where this program's resources are: the installed folder beside the program
/// ("../share/mirvanetest") or, when it runs from the build tree, that of the sources.
[[nodiscard]] std::filesystem::path standardResourceFolder();

}  // namespace mirvane
