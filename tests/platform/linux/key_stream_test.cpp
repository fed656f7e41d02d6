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

TEST(PostedKeys, OwnKeysAreToldFromThoseOfOtherPrograms) {
  PostedKeys posted;
  posted.expect({.scanCode = a, .isDown = true, .userData = 7});
  posted.expect({.scanCode = a, .isDown = false, .userData = 7});
  EXPECT_EQ(posted.take(s, true), std::nullopt);
  EXPECT_EQ(posted.take(a, false), std::nullopt) << "keys come back in order";
  ASSERT_TRUE(posted.take(a, true));
  EXPECT_EQ(posted.take(a, true), std::nullopt) << "each key comes back once";
  EXPECT_TRUE(posted.take(a, false));
}

TEST(Windows, TerminalsAreKnownByTheirClass) {
  for (const char* name : {"XTerm", "Gnome-terminal", "konsole", "Alacritty", "kitty"}) {
    EXPECT_TRUE(isTerminalClass(name)) << name;
  }
  for (const char* name : {"Mousepad", "firefox-esr", "Terminal velocity", ""}) {
    EXPECT_FALSE(isTerminalClass(name)) << name;
  }
}

}  // namespace
}  // namespace mirvane
