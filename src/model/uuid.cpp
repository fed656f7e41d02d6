#include "model/uuid.h"

#include <random>

namespace mirvane {

Uuid makeUuid() {
  static std::mt19937_64 generator = [] {
    std::random_device device;
    std::seed_seq seed{device(), device(), device(), device()};
    return std::mt19937_64(seed);
  }();
  constexpr std::uint64_t versionMask = 0xF000, version4 = 0x4000;
  constexpr std::uint64_t variantMask = std::uint64_t{3} << 62, variant = std::uint64_t{2} << 62;
  return {{(generator() & ~versionMask) | version4, (generator() & ~variantMask) | variant}};
}

}  // namespace mirvane
