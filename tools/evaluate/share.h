#pragma once

#include <cstddef>

namespace mirvane {

/// `part` of `whole`, 0 to 1; 0 of nothing.
[[nodiscard]] inline double share(std::size_t part, std::size_t whole) {
  return whole == 0 ? 0 : static_cast<double>(part) / static_cast<double>(whole);
}

}  // namespace mirvane
