#include "observation/observable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace mirvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ObservableField : public testing::Test {
 protected:
  std::function<void()> noting(const std::string& name) {
    return [this, name] { log.push_back(name + *field); };
  }
  std::vector<std::string> taken() { return std::exchange(log, {}); }

  Observable<std::string> field{"a"};
  std::vector<std::string> log;
};

TEST_F(ObservableField, TellsObserversInOrderOfRegistration) {
  const auto first = field.subscribe(noting("1"));
  const auto second = field.subscribe(noting("2"));
  field.set("b");
  EXPECT_THAT(taken(), ElementsAre("1b", "2b"));
  field.set("b");
  EXPECT_THAT(taken(), IsEmpty()) << "the same value is not news";
  field.assign("b");
  EXPECT_THAT(taken(), ElementsAre("1b", "2b"));
  field.modify([](std::string& value) { value += '!'; });
  EXPECT_THAT(taken(), ElementsAre("1b!", "2b!"));
}

TEST_F(ObservableField, ForgetsAnObserverWithItsSubscription) {
  std::optional<Subscription> kept, outlivesItsField;
  {
    auto first = field.subscribe(noting("1"));
    kept = std::move(first);
    const auto second = field.subscribe(noting("2"));
    const Observable<int> shortLived{1};
    outlivesItsField = shortLived.subscribe(noting("never"));
  }
  field.set("b");
  EXPECT_THAT(taken(), ElementsAre("1b"));
  kept = field.subscribe(noting("3"));
  field.set("c");
  EXPECT_THAT(taken(), ElementsAre("3c")) << "assigning ends the subscription that was there";
}

TEST_F(ObservableField, AllowsSubscribingAndUnsubscribingWhileObserversAreCalled) {
  std::optional<Subscription> first, second, third;
  first = field.subscribe([&] {
    log.emplace_back("1");
    first.reset();
    second.reset();
    third = field.subscribe(noting("3"));
  });
  second = field.subscribe(noting("2"));
  field.set("b");
  EXPECT_THAT(taken(), ElementsAre("1"));
  field.set("c");
  EXPECT_THAT(taken(), ElementsAre("3c"));
}

}  // namespace
}  // namespace mirvane
