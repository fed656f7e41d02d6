#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/progress.h"
#include "support/shipped_resources.h"

namespace mirvane {

/// For a file of "typo TAB meant [TAB kind]" lines: how often the meant word is the first, among
/// the first three, or not at all among the suggestions for the typo, and how long they took.
[[nodiscard]] nlohmann::ordered_json evaluatePairs(const std::filesystem::path& file,
                                                   ShippedResources& shipped,
                                                   const Progress& progress);

}  // namespace mirvane
