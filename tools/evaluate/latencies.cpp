#include "evaluate/latencies.h"

#include <algorithm>
#include <cmath>

namespace mirvane {

nlohmann::ordered_json Latencies::summary() const {
  auto sorted = microseconds_;
  std::sort(sorted.begin(), sorted.end());
  const auto ranked = [&](double share) {
    if (sorted.empty()) return 0.0;
    const auto rank = std::ceil(share * static_cast<double>(sorted.size()));
    return sorted[static_cast<std::size_t>(std::max(rank, 1.0)) - 1];
  };
  return {{"median", ranked(0.5)}, {"p99", ranked(0.99)}, {"max", ranked(1)}};
}

}  // namespace mirvane
