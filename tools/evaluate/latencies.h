#pragma once

#include <chrono>
#include <nlohmann/json.hpp>
#include <vector>

namespace mirvane {

/// Collects how long something took, again and again.
class Latencies {
 public:
  /// Runs `work` and notes its time.
  template <typename Work>
  void measure(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::micro> taken =
        std::chrono::steady_clock::now() - start;
    microseconds_.push_back(taken.count());
  }

  /// `median`, `p99` and `max` in microseconds (nearest rank); zeros without a measurement.
  [[nodiscard]] nlohmann::ordered_json summary() const;

 private:
  std::vector<double> microseconds_;
};

}  // namespace mirvane
