#pragma once

#include <vector>

#include "platform/bundle.h"

namespace mirvane {

/// Resources in folders of the file system; the first folder that has one provides it.
class ResourceBundle : public Bundle {
 public:
  explicit ResourceBundle(std::vector<std::filesystem::path> folders);

  /// The resources of this program: those laid out beside it, the same way in the build tree and
  /// where it is installed (`../share/mirvanetest` from the program's own folder).
  [[nodiscard]] static ResourceBundle ofProgram();

  [[nodiscard]] std::optional<std::filesystem::path> pathForResource(
      std::string_view name, std::string_view extension,
      std::string_view subdirectory = {}) const override;
  [[nodiscard]] std::optional<std::string> contents(
      const std::filesystem::path& path) const override;

 private:
  std::vector<std::filesystem::path> folders_;
};

}  // namespace mirvane
