#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/simulated/desktop.h"

namespace mirvane::simulated {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Writes down which keys and clicks a global monitor of each sees.
class EventDelivery : public testing::Test {
 protected:
  EventDelivery() {
    watch(EventMask::keyDown, "down");
    watch(EventMask::pointerDown, "pointer");
  }

  void watch(EventMask kind, const char* name) {
    (void)desktop.monitors().addGlobalMonitor(
        kind, [this, name](const InputEvent&) { log.emplace_back(name); });
  }

  std::vector<std::string> taken() { return std::exchange(log, {}); }

  Desktop desktop;
  std::vector<std::string> log;
};

TEST_F(EventDelivery, MonitorsRunBeforeTheEditAndTheirTasksAfterIt) {
  const auto& element = desktop.openElement();
  (void)desktop.monitors().addGlobalMonitor(EventMask::keyDown, [&](const InputEvent& event) {
    log.push_back("handler finds '" + element.text() + "'");
    desktop.tasks().post([&, typed = *event.characters] {
      log.push_back("task of " + typed + " finds '" + element.text() + "'");
    });
  });
  desktop.keyboard().press({0, "a"});
  desktop.keyboard().press({11, "b"});
  desktop.settle();
  EXPECT_THAT(taken(), ElementsAre("down", "handler finds ''", "down", "handler finds 'a'",
                                   "task of a finds 'ab'", "task of b finds 'ab'"));
}

TEST_F(EventDelivery, MonitorsMayComeAndGoWhileBeingCalled) {
  desktop.openElement();
  auto& monitors = desktop.monitors();
  std::optional<MonitorHandle> first;
  std::optional<MonitorHandle> second;
  first = monitors.addGlobalMonitor(EventMask::keyDown, [&](const InputEvent&) {
    monitors.removeMonitor(*first);
    monitors.removeMonitor(*second);
    log.emplace_back("first");
    (void)monitors.addGlobalMonitor(EventMask::keyDown,
                                    [&](const InputEvent&) { log.emplace_back("third"); });
  });
  second = monitors.addGlobalMonitor(EventMask::keyDown,
                                     [&](const InputEvent&) { log.emplace_back("second"); });
  desktop.keyboard().press({0, "a"});
  EXPECT_THAT(taken(), ElementsAre("down", "first"));
  desktop.keyboard().press({0, "a"});
  EXPECT_THAT(taken(), ElementsAre("down", "third"));
  monitors.removeMonitor(*first);
  EXPECT_EQ(monitors.count(), 3U);
}

TEST_F(EventDelivery, ObserversHearOfEverySwitch) {
  auto& workspace = desktop.workspace();
  const auto handle = workspace.addActivationObserver(
      [&] { log.push_back(workspace.frontmostApplication()->bundleIdentifier.value_or("none")); });
  auto& mail = desktop.openApplication({.bundleIdentifier = "mail"});
  desktop.openApplication();
  desktop.pointer().click(mail);
  desktop.pointer().click(mail);
  EXPECT_THAT(taken(), ElementsAre("mail", "none", "pointer", "mail", "pointer"));

  mail.setBundleIdentifier("renamed");
  EXPECT_THAT(taken(), IsEmpty());
  EXPECT_EQ(workspace.frontmostApplication()->bundleIdentifier, "renamed");
  workspace.removeActivationObserver(*handle);
  workspace.activate(mail);
  EXPECT_THAT(taken(), IsEmpty());
  workspace.quit(mail);
  EXPECT_FALSE(workspace.frontmostApplication());
}

TEST_F(EventDelivery, ClickingFocusesTheElementAndPlacesTheCaret) {
  auto& application = desktop.openApplication();
  auto& first = application.addElement(ElementKind::multiLine, "first");
  const auto& second = application.addElement(ElementKind::multiLine, "second");
  desktop.pointer().click(application, first, 2);
  desktop.keyboard().press({7, "x"});
  EXPECT_EQ(first.text(), "fixrst");
  EXPECT_EQ(second.text(), "second");
}

}  // namespace
}  // namespace mirvane::simulated
