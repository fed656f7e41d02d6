#include "capture/cycle_key_monitor.h"

#include <gtest/gtest.h>

#include "platform/key_codes.h"
#include "platform/simulated/desktop.h"

namespace mirvane {
namespace {

using namespace keycode;
using modifier::option;

class CycleKeyMonitor : public testing::Test {
 protected:
  CycleKeyMonitor() {
    desktop.openApplication({.isOwn = true});
    install();
  }

  void install() {
    installCycleKeyMonitor(desktop.monitors(), desktop.tasks(), slot, [this] { ++cycles; });
  }

  /// Lets a modifier key change the flags and returns how often the cycle key fired.
  int change(std::uint16_t keyCode, std::uint64_t flagsAfter) {
    cycles = 0;
    desktop.keyboard().flagsChanged(keyCode, flagsAfter);
    EXPECT_EQ(cycles, 0) << "it is a task of its own";
    desktop.settle();
    return cycles;
  }

  simulated::Desktop desktop;
  std::optional<MonitorHandle> slot;
  int cycles = 0;
};

TEST_F(CycleKeyMonitor, FiresOnceOnTheWayDown) {
  EXPECT_EQ(change(rightOption, option | modifier::capsLock), 1);
  EXPECT_EQ(change(rightOption, modifier::capsLock), 0);
}

TEST_F(CycleKeyMonitor, IgnoresOtherModifierKeys) {
  EXPECT_EQ(change(keycode::option, option), 0);
  EXPECT_EQ(change(rightOption, option), 1);
  EXPECT_EQ(change(rightOption, option), 1) << "the release, with Left Option still down";
  EXPECT_EQ(change(rightCommand, option | modifier::command), 0);
  desktop.openApplication();
  EXPECT_EQ(change(rightOption, option), 0) << "only the own windows are watched";
}

TEST_F(CycleKeyMonitor, IsInstalledOnceAndRemovedOnce) {
  install();
  EXPECT_EQ(desktop.monitors().count(), 1U);
  removeCycleKeyMonitor(desktop.monitors(), slot);
  removeCycleKeyMonitor(desktop.monitors(), slot);
  EXPECT_EQ(slot, std::nullopt);
  EXPECT_EQ(desktop.monitors().count(), 0U);
  EXPECT_EQ(change(rightOption, option), 0);
  desktop.monitors().refuse(simulated::MonitorScope::local, EventMask::flagsChanged);
  install();
  EXPECT_EQ(slot, std::nullopt);
}

}  // namespace
}  // namespace mirvane
