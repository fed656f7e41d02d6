#pragma once

#include <array>
#include <cstdint>

namespace mirvane {

/// A random (version 4) universally unique identifier.
struct Uuid {
  std::array<std::uint64_t, 2> bits{};

  auto operator<=>(const Uuid&) const = default;
};

[[nodiscard]] Uuid makeUuid();

}  // namespace mirvane
