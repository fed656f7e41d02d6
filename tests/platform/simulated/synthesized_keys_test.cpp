#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "platform/key_codes.h"
#include "platform/simulated/desktop.h"

namespace mirvane::simulated {
namespace {

using testing::ElementsAre;

constexpr std::int64_t marker = 0x1234;

class SynthesizedKeys : public testing::Test {
 protected:
  SynthesizedKeys() : source(desktop.poster().createSource({})) { source->setUserData(marker); }

  void post(std::uint16_t keyCode, const std::string& text = {}) {
    source->post({.keyCode = keyCode, .isDown = true, .text = text});
    source->post({.keyCode = keyCode, .isDown = false, .text = text});
  }

  Desktop desktop;
  std::unique_ptr<KeyEventSource> source;
};

TEST_F(SynthesizedKeys, ComeBackInOrderWithTextAndUserData) {
  const auto& element = desktop.openElement(ElementKind::multiLine, "a helo");
  std::vector<std::string> log;
  const auto record = [&](const InputEvent& event) {
    log.push_back(std::to_string(event.keyCode) + event.characters.value_or("-") +
                  (event.sourceUserData == marker ? "+" : "?"));
  };
  (void)desktop.monitors().addGlobalMonitor(EventMask::keyDown, record);
  (void)desktop.monitors().addGlobalMonitor(EventMask::keyUp, record);
  post(keycode::deleteKey);
  post(keycode::text, "lo ");
  EXPECT_TRUE(log.empty()) << "nothing arrives inside post";
  EXPECT_EQ(element.text(), "a helo");
  desktop.settle();
  EXPECT_THAT(log, ElementsAre("51-+", "51-+", "0lo +", "0lo +"));
  EXPECT_EQ(element.text(), "a hello ");
}

TEST_F(SynthesizedKeys, GoToWhateverHasTheFocusWhenTheyArrive) {
  const auto& before = desktop.openElement();
  post(keycode::text, "x");
  auto& application = desktop.workspace().addApplication({.isOwn = true});
  const auto& after = application.addElement(ElementKind::multiLine);
  desktop.workspace().activate(application);
  bool isSeenLocally = false;
  (void)desktop.monitors().addLocalMonitor(EventMask::keyDown,
                                           [&](const InputEvent&) { isSeenLocally = true; });
  desktop.settle();
  EXPECT_EQ(before.text(), "");
  EXPECT_EQ(after.text(), "x");
  EXPECT_TRUE(isSeenLocally);
}

TEST_F(SynthesizedKeys, InsertTheirTextWholeWhateverTheKeyCode) {
  const auto& element = desktop.openElement();
  post(keycode::leftArrow, "one\rtwo");
  desktop.settle();
  EXPECT_EQ(element.text(), "one\ntwo");
  EXPECT_EQ(element.caret(), 7);
}

}  // namespace
}  // namespace mirvane::simulated
