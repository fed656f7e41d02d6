#include "platform/simulated/desktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "platform/key_codes.h"

namespace mirvane::simulated {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

/// The times at which a kind of key event came, in milliseconds from the start.
class SimulatedDesktop : public testing::Test {
 protected:
  SimulatedDesktop() {
    desktop.clock().setMonotonicSeconds(0);
    watch(EventMask::keyDown, pressedAt);
    watch(EventMask::keyUp, releasedAt);
  }

  void watch(EventMask kind, std::vector<long>& times) {
    (void)desktop.monitors().addGlobalMonitor(kind, [this, &times](const InputEvent& event) {
      times.push_back(std::lround(event.timestamp * 1000));
      desktop.tasks().post([this] { ++tasksRun; });
    });
  }

  Desktop desktop;
  std::vector<long> pressedAt;
  std::vector<long> releasedAt;
  int tasksRun = 0;
};

TEST_F(SimulatedDesktop, TypesTextsInTheirRhythm) {
  const auto& element = desktop.openElement();
  desktop.type("Hé\n\bx", {.gap = 0.2, .hold = 0.05});
  EXPECT_EQ(element.text(), "Héx");
  EXPECT_THAT(pressedAt, ElementsAre(0, 200, 400, 600, 800));
  EXPECT_THAT(releasedAt, ElementsAre(50, 250, 450, 650, 850));
  EXPECT_EQ(tasksRun, 10);
  EXPECT_DOUBLE_EQ(desktop.clock().monotonicSeconds(), 1.0);
}

TEST_F(SimulatedDesktop, HeldKeysRepeatUntilTheyAreReleased) {
  const auto& element = desktop.openElement();
  desktop.keyboard().hold({1, "s"}, {.delay = 0.5, .interval = 0.1});
  desktop.advance(0.45);
  EXPECT_EQ(element.text(), "s");
  desktop.advance(0.3);
  EXPECT_EQ(tasksRun, 4) << "tasks run after every repeat";
  desktop.keyboard().release({1, "s"});
  desktop.advance(5);
  EXPECT_EQ(element.text(), "ssss");
  EXPECT_THAT(pressedAt, ElementsAre(0, 500, 600, 700));
  EXPECT_THAT(releasedAt, ElementsAre(750));
}

TEST_F(SimulatedDesktop, AnotherPressEndsTheRepeatButAnotherReleaseDoesNot) {
  const auto& element = desktop.openElement();
  desktop.keyboard().hold({1, "s"}, {.delay = 0.5, .interval = 0.1});
  desktop.keyboard().release({0, "a"});
  desktop.advance(0.55);
  desktop.keyboard().press({0, "a"});
  desktop.advance(5);
  EXPECT_EQ(element.text(), "ssa");
}

TEST(VirtualClock, RunsDateAndMonotonicTimeTogether) {
  VirtualClock clock(Clock::DateTime{1000s}, 5);
  clock.advance(0.25);
  EXPECT_EQ(clock.now(), Clock::DateTime{1000s + 250ms});
  clock.advanceTo(5.1);
  EXPECT_DOUBLE_EQ(clock.monotonicSeconds(), 5.25) << "time does not go back";
  clock.setMonotonicSeconds(0);
  EXPECT_EQ(clock.now(), Clock::DateTime{1000s + 250ms});
  clock.setNow(Clock::DateTime{2000s});
  clock.advance(1.5);
  EXPECT_EQ(clock.now(), Clock::DateTime{2001s + 500ms});
  EXPECT_DOUBLE_EQ(clock.monotonicSeconds(), 1.5);
}

TEST(VirtualClock, CountsSleepInTheDateAndTheUptimeOnly) {
  VirtualClock clock(Clock::DateTime{1000s}, 5);
  clock.sleep(60);
  EXPECT_EQ(clock.now(), Clock::DateTime{1060s});
  EXPECT_DOUBLE_EQ(clock.uptimeSeconds(), 65);
  EXPECT_DOUBLE_EQ(clock.monotonicSeconds(), 5);
}

TEST(KeyLayout, CoversPrintableAsciiWithOneStrokeEach) {
  std::vector<KeyStroke> strokes;
  for (char character = ' '; character <= '~'; ++character) {
    const auto stroke = keyStrokeFor(std::string(1, character));
    ASSERT_TRUE(stroke) << character;
    EXPECT_EQ(stroke->text, std::string(1, character));
    for (const auto& other : strokes) {
      EXPECT_FALSE(other.keyCode == stroke->keyCode && other.modifierFlags == stroke->modifierFlags)
          << character << " and " << *other.text;
    }
    strokes.push_back(*stroke);
  }
  EXPECT_EQ(keyStrokeFor("T"), (KeyStroke{17, "T", modifier::shift}));
  EXPECT_EQ(keyStrokeFor("?"), (KeyStroke{44, "?", modifier::shift}));
  EXPECT_EQ(keyStrokeFor("\b"), (KeyStroke{51, "\x7f", 0}));
  EXPECT_EQ(keyStrokeFor("é"), std::nullopt);
  EXPECT_EQ(keyStrokeOrText("é"), (KeyStroke{0, "é", 0}));
}

}  // namespace
}  // namespace mirvane::simulated
