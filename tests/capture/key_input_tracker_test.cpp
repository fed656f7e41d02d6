#include "capture/key_input_tracker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "platform/key_codes.h"
#include "platform/simulated/desktop.h"

namespace mirvane {
namespace {

using simulated::ElementKind;
using simulated::MonitorScope;
using testing::ElementsAre;
using testing::Optional;

class KeyInputTrackerTest : public testing::Test {
 protected:
  KeyInputTrackerTest() {
    desktop.openElement();
    tracker->start();
  }

  /// A hold or input gap in whole ms, -1 for none, newest first.
  std::vector<double> ms(std::optional<double> KeyEvent::*field) const {
    std::vector<double> values;
    for (const auto& event : *tracker->events()) {
      values.push_back((event.*field) ? std::round(*(event.*field)) : -1);
    }
    return values;
  }
  std::string typedText() const {
    std::string text;
    for (const auto& event : *tracker->events()) text.insert(0, event.inputText);
    return text;
  }
  const TypedWordBuffer& buffer() const { return tracker->typedWordBuffer(); }
  std::size_t installed() {
    return desktop.monitors().count() + desktop.workspace().observerCount();
  }

  simulated::Desktop desktop;
  TypingConfig config;
  std::unique_ptr<KeyInputTracker> tracker = std::make_unique<KeyInputTracker>(
      KeyInputTracker::Platform{desktop.monitors(), desktop.workspace(), desktop.tasks()}, config);
};

TEST_F(KeyInputTrackerTest, MeasuresGapsAndHoldTimes) {
  desktop.type("ab", {.gap = 0.2, .hold = 0.08});
  desktop.type("c", {.gap = 0.3, .hold = 0.15});
  EXPECT_THAT(ms(&KeyEvent::inputGap), ElementsAre(200, 200, -1));
  EXPECT_THAT(ms(&KeyEvent::holdTime), ElementsAre(150, 80, 80));
  desktop.keyboard().press({9, "v"});
  desktop.settle();
  tracker->reset();
  desktop.keyboard().release({9, "v"});
  desktop.type("d");
  EXPECT_THAT(ms(&KeyEvent::inputGap), ElementsAre(-1)) << "the first after a reset has no gap";
}

TEST_F(KeyInputTrackerTest, GivesOverlappingKeysTheirOwnHoldTimes) {
  auto& keyboard = desktop.keyboard();
  keyboard.press({0, "a"}, {.timestamp = 1.0});
  keyboard.press({11, "b"}, {.timestamp = 1.1});
  desktop.settle();
  const Uuid id = tracker->events()->back().id;
  keyboard.release({0, "a"}, {.timestamp = 1.25});
  desktop.settle();
  EXPECT_THAT(ms(&KeyEvent::holdTime), ElementsAre(-1, 250));
  EXPECT_EQ(tracker->events()->back().id, id) << "the record stays the same one";
  keyboard.release({11, "b"}, {.timestamp = 1.5});
  keyboard.release({11, "b"}, {.timestamp = 1.6});
  keyboard.release({9, "v"}, {.timestamp = 1.7});
  desktop.settle();
  EXPECT_THAT(ms(&KeyEvent::holdTime), ElementsAre(400, 250)) << "unmatched key-ups do nothing";
}

TEST_F(KeyInputTrackerTest, TimesAHeldKeyFromItsLastRepeat) {
  desktop.keyboard().hold({0, "a"}, {.delay = 0.5, .interval = 0.03});
  desktop.advance(0.57);
  desktop.keyboard().release({0, "a"});
  desktop.settle();
  EXPECT_THAT(ms(&KeyEvent::inputGap), ElementsAre(30, 30, 500, -1));
  EXPECT_THAT(ms(&KeyEvent::holdTime), ElementsAre(10, -1, -1, -1));
  EXPECT_EQ(buffer().currentWord(), "aaaa");
}

TEST_F(KeyInputTrackerTest, DoesNotRecordKeysOfItsOwnMaking) {
  int calls = 0;
  tracker->onKeyEvent = [&](const KeyEventList&) { ++calls; };
  const auto source = desktop.poster().createSource({});
  const auto post = [&](std::int64_t userData, bool isDown, const char* text) {
    source->setUserData(userData);
    source->post({0, isDown, 0, text});
    desktop.settle();
  };
  post(syntheticEventMarker, true, "own");
  EXPECT_EQ(desktop.workspace().focusedElement()->text(), "own");
  EXPECT_EQ(calls, 0);
  post(syntheticEventMarker + 1, true, "x");
  EXPECT_EQ(typedText(), "x");
  post(syntheticEventMarker, false, "");
  EXPECT_THAT(ms(&KeyEvent::holdTime), ElementsAre(-1)) << "a synthetic key-up times nothing";
}

TEST_F(KeyInputTrackerTest, KeepsTheLast500OfTenThousandKeys) {
  std::string typed;
  tracker->onKeyEvent = [&](const KeyEventList& events) {
    typed += events.front().inputText;
    ASSERT_EQ(events.size(), std::min<std::size_t>(typed.size(), 500));
  };
  for (int i = 0; i < 2000; ++i) desktop.type("abcde");
  EXPECT_EQ(typed.size(), 10000U);
  desktop.type("x");
  EXPECT_EQ(typedText(), typed.substr(typed.size() - 500));
}

TEST_F(KeyInputTrackerTest, ShowsItsSubscriberRunsAndWordsUpToDate) {
  std::vector<std::string> seen;
  tracker->onKeyEvent = [&](const KeyEventList&) {
    seen.push_back(buffer().currentWord() +
                   std::to_string(tracker->previousRepeatedKeys()->size()));
  };
  desktop.type("aab ", {.gap = 0.1, .hold = 0.05});
  EXPECT_THAT(seen, ElementsAre("a0", "aa0", "aab0", "0"))
      << "the first of two presses has no gap, and its gap is the one tested";
  desktop.type("eee", {.gap = 0.1, .hold = 0.05});
  EXPECT_EQ(seen.back(), "eee1");
  tracker->reset();
  EXPECT_EQ(tracker->previousRepeatedKeys()->size(), 1U) << "a reset leaves the runs";
}

TEST_F(KeyInputTrackerTest, ForgetsWordsWhenTheCaretMayBeElsewhere) {
  desktop.type("one tw");
  desktop.pointer().click(*desktop.workspace().frontmost());
  EXPECT_EQ(buffer().currentWord(), "tw") << "the reset is a task";
  desktop.settle();
  EXPECT_EQ(buffer().currentWord(), "");
  EXPECT_EQ(buffer().lastCompletedWord(), std::nullopt);
  EXPECT_EQ(typedText(), "one tw") << "the key presses stay";
  desktop.type("x");
  desktop.openElement(ElementKind::multiLine, {}, {.isOwn = true});
  EXPECT_EQ(buffer().currentWord(), "") << "another application is active";
  desktop.type("y");
  desktop.pointer().click(*desktop.workspace().frontmost());
  desktop.settle();
  EXPECT_EQ(buffer().currentWord(), "y") << "clicks in the own windows are not watched";
}

TEST_F(KeyInputTrackerTest, StartsAndStopsOnce) {
  tracker->start();
  EXPECT_EQ(installed(), 6U);
  desktop.type("aé");
  desktop.secureInput().setHeldElsewhere(true);
  desktop.type("secret");
  desktop.openElement(ElementKind::multiLine, {}, {.isOwn = true});
  desktop.type("B😀");
  tracker->stop();
  tracker->stop();
  EXPECT_EQ(installed(), 0U);
  desktop.type("cd");
  EXPECT_EQ(typedText(), "aéB😀") << "what was recorded stays, nothing is added";
}

TEST_F(KeyInputTrackerTest, DoesWithoutMonitorsThatAreRefused) {
  tracker->stop();
  desktop.monitors().refuse(MonitorScope::global, EventMask::keyUp);
  desktop.workspace().setRefusesObservers(true);
  tracker->start();
  EXPECT_EQ(installed(), 4U);
  desktop.type("a");
  EXPECT_THAT(ms(&KeyEvent::holdTime), ElementsAre(-1));
  tracker->stop();
  EXPECT_EQ(installed(), 0U);
}

TEST_F(KeyInputTrackerTest, InstallsNoMonitorTwiceWhereTheFirstIsRefused) {
  tracker->stop();
  desktop.monitors().refuse(MonitorScope::global, EventMask::keyDown);
  tracker->start();
  tracker->start();
  EXPECT_EQ(installed(), 5U);
  tracker->stop();
  EXPECT_EQ(installed(), 0U);
}

TEST_F(KeyInputTrackerTest, MayDieWithTasksPending) {
  desktop.keyboard().press({0, "a"});
  desktop.keyboard().release({0, "a"});
  desktop.pointer().click(*desktop.workspace().frontmost());
  desktop.workspace().activate(*desktop.workspace().frontmost());
  EXPECT_EQ(desktop.tasks().size(), 4U);
  int calls = 0;
  tracker->onKeyEvent = [&](const KeyEventList&) { ++calls; };
  tracker.reset();
  desktop.settle();
  EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace mirvane
