#pragma once

#include <optional>

#include "model/keystroke_records.h"
#include "model/typing_config.h"

namespace mirvane {

// What the recent key presses tell about the typing. All lists are newest first, and only the
// first 5 to 20 events are looked at.

/// Whether the 10 latest presses hold a run of one repeated key.
[[nodiscard]] bool hasRecentRepeats(const KeyEventList& events, const TypingConfig& config);

/// Whether the latest gap is long: over twice the mean of the gaps before it or, with fewer than
/// three of those, over the configured threshold.
[[nodiscard]] bool isHesitating(const KeyEventList& events, const TypingConfig& config);

/// Mean input gap of the 5 latest presses, ms; 0 when none is known.
[[nodiscard]] double averageRecentGap(const KeyEventList& events);

/// How strongly the 20 latest presses show motor difficulty, 0 to 1: half of it from the median
/// hold time, 0.3 from the variability of the gaps, 0.2 from repeated presses.
[[nodiscard]] double computeMotorPrior(const KeyEventList& events, const TypingConfig& config);

/// The state of an event list.
[[nodiscard]] TypingState analyzeTypingState(const KeyEventList& events,
                                             const TypingConfig& config);

/// Hesitation comes before repetition only when the typing is slow altogether.
[[nodiscard]] std::optional<FeedbackType> derivedFeedbackType(bool isRepeating, bool isHesitating,
                                                              double typingScore,
                                                              const TypingConfig& config);

}  // namespace mirvane
