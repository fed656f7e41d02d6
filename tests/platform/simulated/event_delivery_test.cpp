#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/key_codes.h"
#include "platform/simulated/desktop.h"

namespace mirvane::simulated {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto everything = static_cast<EventMask>(
    static_cast<std::uint64_t>(EventMask::keyDown) | static_cast<std::uint64_t>(EventMask::keyUp) |
    static_cast<std::uint64_t>(EventMask::flagsChanged) |
    static_cast<std::uint64_t>(EventMask::pointerDown));

std::string nameOf(EventMask kind) {
  switch (kind) {
    case EventMask::keyDown:
      return "down";
    case EventMask::keyUp:
      return "up";
    case EventMask::flagsChanged:
      return "flags";
    case EventMask::pointerDown:
      return "pointer";
  }
  return "?";
}

/// Writes down what a local and a global monitor of everything see.
class EventDelivery : public testing::Test {
 protected:
  EventDelivery() {
    (void)desktop.monitors().addLocalMonitor(everything, [this](const InputEvent& event) {
      log.push_back("local " + nameOf(event.kind));
    });
    (void)desktop.monitors().addGlobalMonitor(everything, [this](const InputEvent& event) {
      log.push_back("global " + nameOf(event.kind));
    });
  }

  void strikeKeyAndModifier() {
    desktop.keyboard().press({0, "a"});
    desktop.keyboard().release({0, "a"});
    desktop.keyboard().flagsChanged(keycode::rightOption, modifier::option);
  }

  std::vector<std::string> taken() { return std::exchange(log, {}); }

  Desktop desktop;
  std::vector<std::string> log;
};

TEST_F(EventDelivery, LocalMonitorsSeeOwnWindowsAndGlobalOnesAllOthers) {
  strikeKeyAndModifier();
  EXPECT_THAT(taken(), IsEmpty()) << "no application is in front";
  auto& own = desktop.openApplication({.isOwn = true});
  strikeKeyAndModifier();
  EXPECT_THAT(taken(), ElementsAre("local down", "local up", "local flags"));
  auto& other = desktop.openApplication({.bundleIdentifier = "com.example.notes"});
  strikeKeyAndModifier();
  EXPECT_THAT(taken(), ElementsAre("global down", "global up", "global flags"));
  desktop.pointer().click(own);
  EXPECT_THAT(taken(), ElementsAre("local pointer"));
  desktop.pointer().click(other);
  EXPECT_THAT(taken(), ElementsAre("global pointer"));
}

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
  EXPECT_THAT(taken(),
              ElementsAre("global down", "handler finds ''", "global down", "handler finds 'a'",
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
  EXPECT_THAT(taken(), ElementsAre("global down", "first"));
  desktop.keyboard().press({0, "a"});
  EXPECT_THAT(taken(), ElementsAre("global down", "third"));
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
  EXPECT_THAT(taken(), ElementsAre("mail", "none", "global pointer", "mail", "global pointer"));

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
