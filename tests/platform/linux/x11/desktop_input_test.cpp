#include "platform/linux/x11/desktop_input.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "x_desk.h"

namespace mirvane {
namespace {

/// What was heard of the desktop, on the thread that watches it.
class Heard {
 public:
  void add(const std::string& what, KeyHold hold) {
    const std::lock_guard lock(mutex_);
    all_.insert(what);
    if (hold != KeyHold::none) hold_ = hold;
    changed_.notify_all();
  }

  /// Waits for it: the text of a key, with ^ when it comes up, or "click". False when it does not
  /// come.
  bool await(const std::string& what) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, XDesk::patience, [&] { return all_.count(what) > 0; });
  }

  /// Forgets everything but the last hold, which it returns.
  KeyHold clear() {
    const std::lock_guard lock(mutex_);
    all_.clear();
    return hold_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::set<std::string> all_;
  KeyHold hold_ = KeyHold::none;
};

class X11DesktopInputTest : public ::testing::Test {
 protected:
  X11DesktopInputTest() {
    desk.useLayout("us");
    input->setWatching(true);
  }

  /// Whether `act` ends the typing of a word, once `sign` of it has been heard. A hold that was
  /// over by itself, on a busy machine, is tried again.
  bool endsTyping(const std::function<void()>& act, const std::string& sign) {
    bool isEnded = false, hasBegun = false;
    while (!hasBegun) {
      desk.send({keySpace});
      EXPECT_TRUE(heard.await(" "));
      const auto hold = heard.clear();
      hasBegun = input->withKeysHeldBack(hold, [&](const DesktopInput::TimeLeft& timeLeft) {
        desk.send({keyB, -keyB});
        act();
        EXPECT_TRUE(heard.await(sign));
        isEnded = timeLeft().count() == 0;
      });
      input->giveBack(hold);
      desk.send({-keySpace});
      EXPECT_TRUE(heard.await(" ^"));
    }
    EXPECT_TRUE(heard.await("b^"));
    return isEnded;
  }

  XDesk desk;
  PostedKeys posted;
  Heard heard;
  std::unique_ptr<DesktopInput> input =
      DesktopInput::start(posted, {[this](const DesktopKey& key) {
                                     const auto text = key.key.text.value_or("no text");
                                     heard.add(key.key.isDown ? text : text + "^", key.hold);
                                   },
                                   [] {}, [this](double) { heard.add("click", KeyHold::none); },
                                   [](const DesktopWindow&) {}});
};

TEST_F(X11DesktopInputTest, HoldsKeysUntilAKeyOrAClickGetsThrough) {
  EXPECT_TRUE(endsTyping([&] { desk.post({keyA, -keyA}); }, "a"));
  EXPECT_TRUE(endsTyping([&] { desk.click(XDesk::leftButton); }, "click"));
}

TEST_F(X11DesktopInputTest, GoesOnHoldingWhenAKeyComesUpOrTheWheelTurns) {
  desk.post({keyA});
  EXPECT_FALSE(endsTyping(
      [&] {
        desk.click(XDesk::wheelUp);
        desk.post({keyShift, -keyShift, -keyA});
      },
      "a^"));
}

}  // namespace
}  // namespace mirvane
