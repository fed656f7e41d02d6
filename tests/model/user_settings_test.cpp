#include "model/user_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/simulated/in_memory_user_defaults.h"
#include "platform/simulated/in_memory_workspace.h"

namespace mirvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Strings = std::vector<std::string>;
using Values = std::vector<DefaultsValue>;

constexpr auto autoCorrectionKey = "isAutoCorrectionEnabled";
constexpr auto allowListKey = "allowList";
constexpr auto disabledAppsKey = "disabledAppBundleIDs";

class UserSettingsTest : public testing::Test {
 protected:
  UserSettings launched() { return {defaults, workspace}; }

  void activate(std::optional<std::string> identifier) {
    workspace.activate(workspace.addApplication({std::move(identifier), false}));
  }

  simulated::InMemoryUserDefaults defaults;
  simulated::InMemoryWorkspace workspace;
};

TEST_F(UserSettingsTest, StoreTheirDefaultsAtTheFirstLaunch) {
  const auto settings = launched();
  EXPECT_TRUE(*settings.isAutoCorrectionEnabled());
  EXPECT_THAT(*settings.allowList(), IsEmpty());
  EXPECT_THAT(*settings.disabledAppBundleIDs(), ElementsAre("com.apple.dt.Xcode"));
  EXPECT_EQ(defaults.object(autoCorrectionKey), DefaultsValue{true});
  EXPECT_EQ(defaults.object(allowListKey), std::nullopt);
  EXPECT_EQ(defaults.object(disabledAppsKey), (DefaultsValue{Values{{"com.apple.dt.Xcode"}}}));
  EXPECT_EQ(*settings.cycleKeyCode, 54);
  EXPECT_EQ(*settings.pauseKeyCode, 35);
  EXPECT_EQ(*settings.pauseModifierFlags, 0x80000U);
}

TEST_F(UserSettingsTest, ReadStoredValuesWithoutWriting) {
  defaults.preset(autoCorrectionKey, {false});
  defaults.preset(allowListKey, {Values{{"Helo"}, {"été"}}});
  defaults.preset(disabledAppsKey, {Values{}});
  const auto settings = launched();
  EXPECT_FALSE(*settings.isAutoCorrectionEnabled());
  EXPECT_THAT(*settings.allowList(), ElementsAre("Helo", "été"));
  EXPECT_THAT(*settings.disabledAppBundleIDs(), IsEmpty()) << "an empty list is a list";
  for (const char* key : {autoCorrectionKey, allowListKey, disabledAppsKey}) {
    EXPECT_EQ(defaults.writeCount(key), 0) << key;
  }
}

TEST_F(UserSettingsTest, TakeDefaultsForListsOfTheWrongShape) {
  for (const auto& stored : {DefaultsValue{Values{{"a"}, {1.0}}}, DefaultsValue{"a"},
                             DefaultsValue{true}, DefaultsValue{Values{{Values{}}}}}) {
    defaults.preset(allowListKey, stored);
    defaults.preset(disabledAppsKey, stored);
    const auto settings = launched();
    EXPECT_THAT(*settings.allowList(), IsEmpty());
    EXPECT_THAT(*settings.disabledAppBundleIDs(), ElementsAre("com.apple.dt.Xcode"));
    EXPECT_EQ(defaults.object(disabledAppsKey), stored) << "what is stored is left alone";
  }
}

TEST_F(UserSettingsTest, ConvertAStoredSwitchOfAnotherType) {
  const std::pair<DefaultsValue, bool> rows[] = {
      {{1.0}, true},   {{0.0}, false},    {{-0.5}, true},  {{"YES"}, true}, {{"true"}, true},
      {{"no"}, false}, {{" +010"}, true}, {{"00"}, false}, {{""}, false},   {{Values{}}, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    defaults.preset(autoCorrectionKey, row.first);
    EXPECT_EQ(*launched().isAutoCorrectionEnabled(), row.second);
  }
}

TEST_F(UserSettingsTest, StoreEveryAssignmentAndAnnounceChanges) {
  auto settings = launched();
  int announced = 0;
  const auto noting = [&] { ++announced; };
  const Subscription subscriptions[] = {settings.isAutoCorrectionEnabled().subscribe(noting),
                                        settings.allowList().subscribe(noting),
                                        settings.disabledAppBundleIDs().subscribe(noting)};
  for (int expectedWrites : {1, 2}) {
    settings.setIsAutoCorrectionEnabled(false);
    settings.setAllowList({"Helo"});
    settings.setDisabledAppBundleIDs({"a", "b"});
    EXPECT_EQ(announced, 3) << "the same value again is no change";
    EXPECT_EQ(defaults.writeCount(allowListKey), expectedWrites);
  }
  EXPECT_EQ(defaults.writeCount(autoCorrectionKey), 3) << "the first launch included";
  const auto relaunched = launched();
  EXPECT_FALSE(*relaunched.isAutoCorrectionEnabled());
  EXPECT_EQ(*relaunched.allowList(), Strings{"Helo"});
  EXPECT_THAT(*relaunched.disabledAppBundleIDs(), ElementsAre("a", "b"));
}

TEST_F(UserSettingsTest, AllowWordsInAnyLetterCase) {
  auto settings = launched();
  EXPECT_FALSE(settings.isAllowListed("helo"));
  settings.setAllowList({"Helo", "ÉTÉ", "日本", "👩‍💻"});
  for (const char* word : {"hELO", "e\u0301té", "日本", "👩‍💻"}) {
    EXPECT_TRUE(settings.isAllowListed(word)) << word;
  }
  for (const char* word : {"hello", "hel", "ete", "日", "👩", ""}) {
    EXPECT_FALSE(settings.isAllowListed(word)) << word;
  }
}

TEST_F(UserSettingsTest, DisableApplicationsByTheirExactIdentifier) {
  auto settings = launched();
  settings.setDisabledAppBundleIDs({"com.example.Editor"});
  EXPECT_FALSE(settings.isFrontmostAppDisabled()) << "nothing is in front";
  activate(std::nullopt);
  EXPECT_FALSE(settings.isFrontmostAppDisabled());
  activate("com.example.editor");
  EXPECT_FALSE(settings.isFrontmostAppDisabled());
  activate("com.example.Editor");
  EXPECT_TRUE(settings.isFrontmostAppDisabled());
  EXPECT_FALSE(settings.isCorrectionActive());
  workspace.setFrontmostHidden(true);
  EXPECT_TRUE(settings.isCorrectionActive());
  settings.setIsAutoCorrectionEnabled(false);
  EXPECT_FALSE(settings.isCorrectionActive());
}

}  // namespace
}  // namespace mirvane
