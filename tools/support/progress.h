#pragma once

#include <cstddef>
#include <functional>

namespace mirvane {

/// Told after every step of a long run how many of how many are done.
using Progress = std::function<void(std::size_t done, std::size_t whole)>;

/// A bar on standard error for whoever looks at a terminal, once a run takes longer than a second.
[[nodiscard]] Progress terminalProgress();

}  // namespace mirvane
