#pragma once

#include <cstdint>
#include <random>

namespace mirvane {

/// Random numbers that are the same on every machine: the distributions of the standard library
/// are not.
class RandomSource {
 public:
  explicit RandomSource(std::uint64_t seed) : generator_(seed) {}

  /// At least 0 and below 1.
  double uniform();

  /// 0 to `count` - 1, each equally often; `count` is over 0.
  std::uint64_t below(std::uint64_t count) { return generator_() % count; }

  bool happens(double rate) { return uniform() < rate; }

  /// Log-normally distributed: `median` · e^(`sigma` · Z).
  double logNormal(double median, double sigma);

 private:
  std::mt19937_64 generator_;
};

}  // namespace mirvane
