#include "typist/typist.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <string>
#include <vector>

#include "platform/key_codes.h"
#include "recording/recording_writer.h"
#include "session/study_prompts.h"

namespace mirvane {
namespace {

using Kind = RecordedEvent::Kind;

std::string longText() {
  std::string text;
  for (int i = 0; i < 40; ++i) text += std::string(prompt1) + ' ' + prompt2 + ' ';
  return text;
}

/// Times between presses and from press to release of the same key, ms.
struct Rhythm {
  std::vector<double> gaps, holds;
};

Rhythm rhythmOf(const Recording& recording) {
  Rhythm rhythm;
  std::map<std::uint16_t, double> down;
  double lastDown = -1;
  for (const auto& event : recording.events) {
    if (event.kind == Kind::down) {
      if (lastDown >= 0) rhythm.gaps.push_back((event.t - lastDown) * 1000);
      lastDown = down[event.keyCode] = event.t;
    } else if (event.kind == Kind::up) {
      rhythm.holds.push_back((event.t - down.at(event.keyCode)) * 1000);
    }
  }
  return rhythm;
}

double mean(const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

std::string typedBy(const Recording& recording) {
  std::string text;
  for (const auto& event : recording.events) {
    if (event.kind == Kind::down) text += event.text.value_or("");
  }
  return text;
}

TEST(Typist, TypesTheSameForTheSameSeed) {
  const auto typed = [](std::uint64_t seed) {
    return formatRecording(typeText(prompt1, 1, tremorProfile(), seed));
  };
  EXPECT_EQ(typed(7), typed(7));
  EXPECT_NE(typed(7), typed(8));
}

TEST(Typist, KeepsTheRhythmOfItsProfile) {
  const auto steady = rhythmOf(typeText(longText(), 1, steadyProfile(), 1));
  EXPECT_NEAR(mean(steady.gaps), 240, 24);
  EXPECT_NEAR(median(steady.holds), 95, 5);
  const auto tremor = rhythmOf(typeText(longText(), 1, tremorProfile(), 1));
  EXPECT_GT(mean(tremor.gaps), 1.2 * mean(steady.gaps));
  EXPECT_NEAR(median(tremor.holds), 150, 15);
}

TEST(Typist, LetsGoOfEveryKeyBeforeStrikingItAgain) {
  const auto recording = typeText(longText(), 1, tremorProfile(), 3);
  std::map<std::uint16_t, bool> isDown;
  for (const auto& event : recording.events) {
    if (event.kind == Kind::down) {
      EXPECT_FALSE(isDown[event.keyCode]) << "at " << event.t;
      isDown[event.keyCode] = true;
    } else if (event.kind == Kind::up) {
      isDown[event.keyCode] = false;
    }
  }
  EXPECT_TRUE(std::none_of(isDown.begin(), isDown.end(), [](auto key) { return key.second; }));
}

TEST(Typist, ErrsMoreWithATremor) {
  const auto wrong = [](const TypistProfile& profile) {
    const auto typed = typedBy(typeText(longText(), 1, profile, 5));
    const auto text = longText();
    const auto difference = static_cast<double>(typed.size()) - static_cast<double>(text.size());
    return difference;
  };
  EXPECT_GT(wrong(tremorProfile()), 4 * wrong(steadyProfile()));
}

TEST(Typist, UsesTheCycleKeyInSessionTwoAndChipsInSessionOne) {
  const auto count = [](std::int64_t session, Kind kind) {
    const auto events = typeText(longText(), session, tremorProfile(), 9).events;
    return std::count_if(events.begin(), events.end(),
                         [&](const auto& event) { return event.kind == kind; });
  };
  EXPECT_GT(count(2, Kind::flags), 0);
  EXPECT_EQ(count(1, Kind::flags), 0);
  EXPECT_GT(count(1, Kind::chip), 0);
  EXPECT_EQ(count(2, Kind::chip), 0);
}

}  // namespace
}  // namespace mirvane
