#pragma once

#include <QString>
#include <filesystem>
#include <optional>
#include <string>

namespace mirvane {

/// Writes a text file as a whole or not at all, replacing one of that name. Answers the system's
/// description of what went wrong; absent when the file is written.
[[nodiscard]] std::optional<QString> writeTextFile(const std::filesystem::path& path,
                                                   const std::string& utf8);

}  // namespace mirvane
