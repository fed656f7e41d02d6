#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>

#include "support/progress.h"
#include "support/shipped_resources.h"

namespace mirvane {

/// For a file of "typed TAB intended" lines: types each sentence through the simulated desktop into
/// an empty field with a fresh engine of session 1, and compares the words it ends with. Words are
/// the tokens between spaces; letter case does not count.
[[nodiscard]] nlohmann::ordered_json evaluateSentences(const std::filesystem::path& file,
                                                       ShippedResources& shipped,
                                                       const Progress& progress);

}  // namespace mirvane
