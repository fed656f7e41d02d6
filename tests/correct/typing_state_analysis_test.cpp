#include "correct/typing_state_analysis.h"

#include <gtest/gtest.h>

namespace mirvane {
namespace {

using Times = std::vector<std::optional<double>>;
constexpr std::optional<double> none;
const TypingConfig config;

/// Presses of different keys with these gaps and hold times, newest first.
KeyEventList presses(const Times& gaps, const Times& holds = {}) {
  KeyEventList events(std::max(gaps.size(), holds.size()));
  for (std::size_t i = 0; i < events.size(); ++i) {
    events[i].keyCode = static_cast<std::uint16_t>(i);
    events[i].inputText = std::to_string(i);
    if (i < gaps.size()) events[i].inputGap = gaps[i];
    if (i < holds.size()) events[i].holdTime = holds[i];
  }
  return events;
}

/// Makes the presses at positions `first` to `last` one key.
KeyEventList repeating(KeyEventList events, std::size_t first, std::size_t last) {
  for (std::size_t i = first; i <= last; ++i) events[i].inputText = "r";
  return events;
}

TEST(TypingState, IsNeutralWithoutEvents) {
  const TypingState state = analyzeTypingState({}, config);
  EXPECT_FALSE(state.isRepeating || state.isHesitating || state.isLongPressing);
  EXPECT_EQ(state.typingScore, 0);
  EXPECT_EQ(state.motorPrior, 0);
}

TEST(TypingState, HesitatesAtALongGapForThisTypist) {
  const std::pair<Times, bool> rows[] = {
      {{1200}, true},
      {{1000}, false},
      {{1001, 100, 100}, true},
      {{999, 100, none, 100}, false},
      {{230, 100, 120, 110}, true},
      {{220, 100, 120, 110}, false},
      {{none, 100, 100, 100}, false},
      {{230, none, 100, 120, none, 110}, true},
      {{300, 100, 100, 100, 100, 100, 100, 100, 100, 550, 9999}, false},
      {{301, 100, 100, 100, 100, 100, 100, 100, 100, 550, 9999}, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    EXPECT_EQ(isHesitating(presses(row.first), config), row.second);
  }
}

TEST(TypingState, LooksForRepeatsInTheTenLatestPresses) {
  const auto steady = presses(Times(30, 100));
  EXPECT_FALSE(hasRecentRepeats(steady, config));
  EXPECT_TRUE(hasRecentRepeats(repeating(steady, 8, 9), config));
  EXPECT_FALSE(hasRecentRepeats(repeating(steady, 9, 10), config));
  EXPECT_FALSE(hasRecentRepeats(repeating(presses(Times(5, 140)), 0, 4), config));
}

TEST(TypingState, ScoresTheMeanOfTheFiveLatestGaps) {
  EXPECT_DOUBLE_EQ(averageRecentGap(presses({100, none, 200, 300, 400, 9999})), 250);
  EXPECT_EQ(averageRecentGap(presses({none, none})), 0);
}

struct PriorCase {
  const char* name;
  KeyEventList events;
  double prior;
};

TEST(MotorPrior, AddsHoldTimesVariabilityAndRepeats) {
  const Times irregular{20, 380, 20, 380, 20, 380};  // mean 200, deviation 180
  const Times uneven{100, 300, 100, 300, 100, 300};  // coefficient of variation 0.5
  const auto holding = [](const Times& holds) { return presses({}, holds); };
  Times late(20, none);
  late.push_back(999);
  const PriorCase rows[] = {
      {"upper middle hold time", holding({170, 90, 160, 150}), 0.5},
      {"half way between the groups", holding({none, 123.5, none}), 0.25},
      {"as fast as the control group", holding({95, 60, 95}), 0},
      {"hold time of the 21st press", holding(late), 0},
      {"full variability", presses(irregular), 0.3},
      {"half variability", presses(uneven), 0.15},
      {"four irregular gaps", presses({20, 380, none, 20, 380}), 0},
      {"equal gaps", presses(Times(5, 200)), 0},
      {"mean gap below 0", presses({-20, -380, -20, -380, -20}), 0},
      {"three repeats", repeating(presses(Times(9, 100)), 3, 5), 0.1},
      {"two runs", repeating(repeating(presses(Times(9, 100)), 0, 1), 6, 7), 0.2 * 4 / 6},
      {"eight repeats", repeating(presses(Times(9, 100)), 0, 7), 0.2},
      {"repeats beyond 20", repeating(presses(Times(40, 100)), 19, 30), 0},
      {"everything", repeating(presses({20, 120, 20, 20, 20, 20, 120}, {500}), 0, 6), 1},
  };
  for (const auto& [name, events, prior] : rows) {
    EXPECT_NEAR(computeMotorPrior(events, config), prior, 1e-12) << name;
  }
}

TEST(MotorPrior, SurvivesMediansThatAreTheSame) {
  TypingConfig same;
  same.holdTime.pdMedian = same.holdTime.controlMedian;
  EXPECT_DOUBLE_EQ(computeMotorPrior(presses({}, {95.5}), same), 0.25);
  EXPECT_DOUBLE_EQ(computeMotorPrior(presses({}, {99}), same), 0.5);
}

TEST(Feedback, PrefersRepeatsUnlessTheTypingIsSlow) {
  using enum FeedbackType;
  EXPECT_EQ(derivedFeedbackType(true, true, 1600, config), hesitationDetected);
  EXPECT_EQ(derivedFeedbackType(true, true, 1500, config), repeatDetected);
  EXPECT_EQ(derivedFeedbackType(true, false, 1600, config), repeatDetected);
  EXPECT_EQ(derivedFeedbackType(false, true, 100, config), hesitationDetected);
  EXPECT_EQ(derivedFeedbackType(false, false, 1600, config), std::nullopt);
}

}  // namespace
}  // namespace mirvane
