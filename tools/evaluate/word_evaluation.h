#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/progress.h"
#include "support/shipped_resources.h"

namespace mirvane {

/// For a file of correct words, one a line: the share that the dictionary does not know, and which.
[[nodiscard]] nlohmann::ordered_json evaluateWords(const std::filesystem::path& file,
                                                   ShippedResources& shipped,
                                                   const Progress& progress);

}  // namespace mirvane
