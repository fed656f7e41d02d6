#include "platform/linux/x11/desktop_input.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "x_desk.h"

namespace mirvane {
namespace {

/// What was heard of the desktop, on the thread that watches it.
class Heard {
 public:
  void add(const std::string& what, KeyHold hold = KeyHold::none) {
    const std::lock_guard lock(mutex_);
    all_.push_back(what);
    hold_ = hold;
    changed_.notify_all();
  }

  /// Waits until so much was heard, and forgets it; false when it does not come.
  bool await(const std::vector<std::string>& expected) {
    std::unique_lock lock(mutex_);
    const bool hasCome = changed_.wait_for(lock, XDesk::patience, [&] { return all_ == expected; });
    all_.clear();
    return hasCome;
  }

  [[nodiscard]] KeyHold lastHold() {
    const std::lock_guard lock(mutex_);
    return hold_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::string> all_;
  KeyHold hold_ = KeyHold::none;
};

TEST(X11DesktopInputTest, HoldsKeysUntilAKeyOrAClickGetsThrough) {
  struct Row {
    std::function<void(XDesk&)> act;
    std::vector<std::string> heard;
    bool endsHold;
  };
  const std::vector<Row> rows{
      {[](XDesk& desk) {
         desk.post({keyA, -keyA});
       },
       {"a"},
       true},
      {[](XDesk& desk) { desk.click(XDesk::leftButton); }, {"click"}, true},
      {[](XDesk& desk) {
         desk.click(XDesk::wheelUp), desk.post({keyShift, -keyShift});
       },
       {},
       false},
  };
  XDesk desk;
  desk.useLayout("us");
  PostedKeys posted;
  Heard heard;
  const auto input = DesktopInput::start(
      posted, {[&](const DesktopKey& key) {
                 if (key.key.isDown) heard.add(key.key.text.value_or("no text"), key.hold);
               },
               [] {}, [&](double) { heard.add("click"); }, [](const DesktopWindow&) {}});
  ASSERT_NE(input, nullptr);
  input->setWatching(true);
  for (const auto& row : rows) {
    desk.send({keySpace, -keySpace});
    ASSERT_TRUE(heard.await({" "}));
    const auto hold = heard.lastHold();
    EXPECT_TRUE(input->isHolding(hold));
    EXPECT_TRUE(input->withKeysHeldBack(hold, [&](const DesktopInput::TimeLeft& timeLeft) {
      desk.send({keyB, -keyB});
      row.act(desk);
      EXPECT_TRUE(heard.await(row.heard));
      EXPECT_EQ(timeLeft().count() == 0, row.endsHold);
    }));
    input->giveBack(hold);
    EXPECT_TRUE(heard.await({"b"}));
  }
}

}  // namespace
}  // namespace mirvane
