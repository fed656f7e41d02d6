#pragma once

#include <filesystem>
#include <string>

namespace mirvane {

/// What a name that was typed for a plain-text file means.
struct SaveTarget {
  enum class Kind { nothing, folder, newFile, existingFile };
  Kind kind = Kind::nothing;
  std::filesystem::path path = {};
};

/// `path` with ".txt" added unless it ends in that, in whatever letter case.
[[nodiscard]] std::filesystem::path withTextSuffix(std::filesystem::path path);

/// The meaning of `name` (UTF-8), typed while `folder` is shown: a name in that folder, or a path.
/// White space around it does not count; the name of a folder stands for that folder.
[[nodiscard]] SaveTarget saveTarget(const std::filesystem::path& folder, const std::string& name);

}  // namespace mirvane
