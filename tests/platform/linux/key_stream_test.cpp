// What becomes of raw key events on the way to typing: automatic repeat, the desktop's key filters,
// and the keys that this system posts itself.

#include <gtest/gtest.h>

#include <vector>

#include "platform/linux/x11/auto_repeat.h"
#include "platform/linux/x11/desktop_window.h"
#include "platform/linux/x11/key_filters.h"
#include "platform/linux/x11/posted_keys.h"

namespace mirvane {
namespace {

constexpr std::uint32_t shift = 50, a = 38, s = 39;

class Repeating : public testing::Test {
 protected:
  Repeating() {
    repeat.setSettings({500, 40, [](std::uint32_t key) { return key != shift; }});
  }

  std::vector<double> dueUntil(double now) {
    std::vector<double> times;
    while (const auto due = repeat.takeDue(now)) times.push_back(due->time);
    return times;
  }

  AutoRepeat repeat;
};

TEST_F(Repeating, BeginsAfterTheDelayAndEndsWithTheRelease) {
  repeat.press(a, 1000);
  EXPECT_EQ(dueUntil(1499), std::vector<double>{});
  EXPECT_EQ(dueUntil(1585), (std::vector<double>{1500, 1540, 1580}));
  EXPECT_EQ(repeat.dueTime(), 1620);
  repeat.release(a);
  EXPECT_EQ(repeat.dueTime(), std::nullopt);
}

TEST_F(Repeating, LastKeyPressedRepeatsAndModifiersLeaveItAlone) {
  repeat.press(a, 0);
  repeat.press(s, 100);
  repeat.press(shift, 200);
  repeat.release(a);
  const auto due = repeat.takeDue(600);
  ASSERT_TRUE(due);
  EXPECT_EQ(due->scanCode, s);
  EXPECT_EQ(repeat.stop(), s);
  EXPECT_EQ(repeat.stop(), std::nullopt);
}

TEST(KeyFilters, SlowKeysTakesAPressWhenTheServerDoes) {
  KeyFilters filters;
  filters.setSettings({.isSlowKeysOn = true});
  EXPECT_FALSE(filters.press(a, 0));
  EXPECT_FALSE(filters.release(a, 30)) << "let go too early";
  EXPECT_FALSE(filters.press(a, 100));
  filters.acceptSlowKey(a);
  EXPECT_TRUE(filters.release(a, 500));
}

TEST(KeyFilters, BounceKeysDropsTheSameKeyAgainWithinTheDelay) {
  KeyFilters filters;
  filters.setSettings({.isBounceKeysOn = true, .bounceDelay = 200});
  EXPECT_TRUE(filters.press(a, 0));
  EXPECT_TRUE(filters.release(a, 50));
  EXPECT_FALSE(filters.press(a, 200));
  EXPECT_FALSE(filters.release(a, 220)) << "starts the delay anew";
  EXPECT_FALSE(filters.press(a, 400));
  EXPECT_FALSE(filters.release(a, 410));
  EXPECT_TRUE(filters.press(s, 420)) << "another key";
  EXPECT_TRUE(filters.release(s, 430));
  EXPECT_TRUE(filters.press(a, 440)) << "another key was in between";
}

class Posted : public testing::Test {
 protected:
  void post(std::uint32_t key, int millisecond = 0) {
    posted.expect({.scanCode = key, .isDown = true}, at(millisecond));
    posted.expect({.scanCode = key, .isDown = false}, at(millisecond));
  }
  bool comes(std::uint32_t key, bool isDown, int millisecond = 1) {
    return posted.take(key, isDown, at(millisecond)).has_value();
  }
  static PostedKeys::Clock::time_point at(int millisecond) {
    return PostedKeys::Clock::time_point(std::chrono::milliseconds(millisecond));
  }

  PostedKeys posted;
};

TEST_F(Posted, OwnKeysAreToldFromThoseOfOtherPrograms) {
  post(a);
  EXPECT_FALSE(comes(s, true));
  EXPECT_TRUE(comes(a, true));
  EXPECT_FALSE(comes(a, true)) << "each key comes back once";
  EXPECT_FALSE(comes(s, false));
  EXPECT_TRUE(comes(a, false));
}

TEST_F(Posted, KeyThatDoesNotComeBackIsPassedOver) {
  post(shift);
  post(a);
  EXPECT_TRUE(comes(shift, false)) << "the server says nothing of a second press";
  EXPECT_TRUE(comes(a, true));
  EXPECT_TRUE(comes(a, false));
  post(s, 0);
  EXPECT_FALSE(comes(s, true, 600)) << "what has not come by now is another's";
}

TEST(Windows, TerminalsAreKnownByTheirClass) {
  for (const char* name : {"XTerm", "UXTerm", "Gnome-terminal", "konsole", "Alacritty"}) {
    EXPECT_TRUE(isTerminalClass(name)) << name;
  }
  for (const char* name : {"Mousepad", "firefox-esr", "Terminal velocity", ""}) {
    EXPECT_FALSE(isTerminalClass(name)) << name;
  }
}

}  // namespace
}  // namespace mirvane
