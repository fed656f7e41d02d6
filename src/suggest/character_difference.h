#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace mirvane {

using Characters = std::span<const std::string_view>;

/// The one position at which two texts of equal length differ; absent when the lengths differ, or
/// the texts differ nowhere or at more than one position.
[[nodiscard]] std::optional<std::size_t> onlyDifference(Characters a, Characters b);

/// True when taking the character at `position` out of `longer` gives exactly `shorter`.
[[nodiscard]] bool equalsWithout(Characters longer, std::size_t position, Characters shorter);

/// The number of leading positions at which both texts have the same character.
[[nodiscard]] std::size_t commonPrefixLength(Characters a, Characters b);

}  // namespace mirvane
