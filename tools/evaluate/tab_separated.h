#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace mirvane {

/// The lines of a text file, split at tabs. Empty lines are skipped. Throws a `std::runtime_error`
/// with file and line number when the file cannot be read or a line has fewer than `leastFields`
/// fields.
[[nodiscard]] std::vector<std::vector<std::string>> readTabSeparated(
    const std::filesystem::path& file, std::size_t leastFields);

}  // namespace mirvane
