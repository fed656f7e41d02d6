#include "analyse/rhythm.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace mirvane {
namespace {

double medianOf(std::vector<double>& values) {
  std::sort(values.begin(), values.end());
  const auto middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double deviationOf(const std::vector<double>& values, double mean) {
  const double squares = std::accumulate(
      values.begin(), values.end(), 0.0,
      [&](double sum, double value) { return sum + (value - mean) * (value - mean); });
  return std::sqrt(squares / static_cast<double>(values.size() - 1));
}

/// Counts runs of presses of one key, each soon after the one before.
class RunCounter {
 public:
  explicit RunCounter(const TypingConfig& config) : config_(config) {}

  void press(const TypedKey& key) {
    const bool goesOn = previous_ != nullptr && key.code == previous_->code && key.gap &&
                        *key.gap < config_.maxInputGap;
    length_ = goesOn ? length_ + 1 : 1;
    if (length_ == std::max<std::int64_t>(config_.minimumRepeatCount, 2)) ++runs_;
    previous_ = &key;
  }

  [[nodiscard]] std::int64_t runs() const { return runs_; }

 private:
  const TypingConfig& config_;
  const TypedKey* previous_ = nullptr;
  std::int64_t length_ = 0;
  std::int64_t runs_ = 0;
};

}  // namespace

Spread spreadOf(std::vector<double> values) {
  if (values.empty()) return {};
  const double mean =
      std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
  Spread spread{.median = medianOf(values), .mean = mean};
  if (values.size() > 1) spread.deviation = deviationOf(values, mean);
  return spread;
}

Rhythm rhythmOf(const std::vector<TypedKey>& keys, const TypingConfig& config) {
  Rhythm rhythm;
  std::vector<double> intervals, holds;
  RunCounter runs(config);
  for (const auto& key : keys) {
    if (!rhythm.first) rhythm.first = key.t;
    rhythm.last = key.t;
    if (key.hold) holds.push_back(*key.hold);
    if (key.isHeldRepeat) {
      ++rhythm.heldRepeats;
      continue;
    }
    runs.press(key);
    if (!key.gap) continue;
    intervals.push_back(*key.gap);
    if (*key.gap > config.hesitationThreshold) ++rhythm.hesitations;
  }
  rhythm.intervals = spreadOf(std::move(intervals));
  rhythm.holds = spreadOf(std::move(holds));
  rhythm.repeats = runs.runs();
  return rhythm;
}

}  // namespace mirvane
