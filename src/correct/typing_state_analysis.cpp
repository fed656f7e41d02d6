#include "correct/typing_state_analysis.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

#include "capture/repeat_key_detector.h"

namespace mirvane {
namespace {

constexpr std::size_t repeatSpan = 10, hesitationSpan = 10, gapSpan = 5, priorSpan = 20;
constexpr std::size_t gapsForPersonalThreshold = 3;
constexpr std::size_t gapsForVariability = 5;
constexpr double slowTypingFactor = 1.5;

/// The values of an optional field that are present at positions `first` to `last` - 1.
std::vector<double> present(const KeyEventList& events, std::optional<double> KeyEvent::*field,
                            std::size_t first, std::size_t last) {
  std::vector<double> values;
  values.reserve(last);
  for (std::size_t i = first; i < std::min(events.size(), last); ++i) {
    if (const auto value = events[i].*field) values.push_back(*value);
  }
  return values;
}

double sum(const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0);
}

double mean(const std::vector<double>& values) {
  return sum(values) / static_cast<double>(values.size());
}

RepeatKeyDetector detectorFor(const TypingConfig& config) {
  return {config.maxInputGap, config.minimumRepeatCount};
}

/// 0 for `share` of 0 or less, `full` for 1 or more, in proportion between.
double component(double full, double share) {
  return share <= 0 ? 0 : full * std::min(share, 1.0);
}

double holdComponent(const KeyEventList& events, const HoldTimeStats& stats) {
  auto times = present(events, &KeyEvent::holdTime, 0, priorSpan);
  if (times.empty()) return 0;
  std::sort(times.begin(), times.end());
  const double median = times[times.size() / 2];
  const double span = std::max(stats.pdMedian - stats.controlMedian, 1.0);
  return component(0.5, (median - stats.controlMedian) / span);
}

/// From the coefficient of variation: 0.3 counts as steady, 0.7 as fully irregular.
double variabilityComponent(const KeyEventList& events) {
  const auto gaps = present(events, &KeyEvent::inputGap, 0, priorSpan);
  if (gaps.size() < gapsForVariability) return 0;
  const double m = mean(gaps);
  if (m <= 0) return 0;
  double squares = 0;
  for (const double gap : gaps) squares += (gap - m) * (gap - m);
  const double deviation = std::sqrt(squares / static_cast<double>(gaps.size()));
  return component(1.0, (deviation / m - 0.3) / 0.4);
}

double repeatComponent(const KeyEventList& events, const TypingConfig& config) {
  std::int64_t presses = 0;
  for (const auto& run : detectorFor(config).detect(events, priorSpan)) presses += run.repeatCount;
  return component(0.2, static_cast<double>(presses) / 6);
}

}  // namespace

bool hasRecentRepeats(const KeyEventList& events, const TypingConfig& config) {
  return !detectorFor(config).detect(events, repeatSpan).empty();
}

bool isHesitating(const KeyEventList& events, const TypingConfig& config) {
  if (events.empty() || !events.front().inputGap) return false;
  const auto earlier = present(events, &KeyEvent::inputGap, 1, hesitationSpan);
  const double threshold =
      earlier.size() < gapsForPersonalThreshold ? config.hesitationThreshold : 2 * mean(earlier);
  return *events.front().inputGap > threshold;
}

double averageRecentGap(const KeyEventList& events) {
  const auto gaps = present(events, &KeyEvent::inputGap, 0, gapSpan);
  return gaps.empty() ? 0 : mean(gaps);
}

double computeMotorPrior(const KeyEventList& events, const TypingConfig& config) {
  const double prior = repeatComponent(events, config) + holdComponent(events, config.holdTime) +
                       0.3 * variabilityComponent(events);
  return std::clamp(prior, 0.0, 1.0);
}

TypingState analyzeTypingState(const KeyEventList& events, const TypingConfig& config) {
  if (events.empty()) return {};
  return {.isRepeating = hasRecentRepeats(events, config),
          .isHesitating = isHesitating(events, config),
          .isLongPressing = false,
          .typingScore = averageRecentGap(events),
          .motorPrior = computeMotorPrior(events, config)};
}

std::optional<FeedbackType> derivedFeedbackType(bool isRepeating, bool isHesitating,
                                                double typingScore, const TypingConfig& config) {
  if (isHesitating && typingScore > slowTypingFactor * config.hesitationThreshold) {
    return FeedbackType::hesitationDetected;
  }
  if (isRepeating) return FeedbackType::repeatDetected;
  if (isHesitating) return FeedbackType::hesitationDetected;
  return std::nullopt;
}

}  // namespace mirvane
