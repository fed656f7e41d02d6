#include "model/user_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/simulated/in_memory_user_defaults.h"
#include "platform/simulated/in_memory_workspace.h"
#include "text/letter_case.h"

namespace mirvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Values = std::vector<DefaultsValue>;

constexpr auto autoCorrectionKey = "isAutoCorrectionEnabled";
constexpr auto allowListKey = "allowList";
constexpr auto disabledAppsKey = "disabledAppBundleIDs";

class UserSettingsTest : public testing::Test {
 protected:
  UserSettings launched() { return {defaults, workspace}; }

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
  for (const auto& stored : {DefaultsValue{Values{{"a"}, {1.0}}}, DefaultsValue{"a"}}) {
    defaults.preset(allowListKey, stored);
    defaults.preset(disabledAppsKey, stored);
    const auto settings = launched();
    EXPECT_THAT(*settings.allowList(), IsEmpty());
    EXPECT_THAT(*settings.disabledAppBundleIDs(), ElementsAre("com.apple.dt.Xcode"));
    EXPECT_EQ(defaults.object(disabledAppsKey), stored) << "what is stored is left alone";
  }
}

TEST_F(UserSettingsTest, ConvertAStoredSwitchOfAnotherType) {
  const auto launchedWith = [&](const DefaultsValue& stored) {
    defaults.preset(autoCorrectionKey, stored);
    return *launched().isAutoCorrectionEnabled();
  };
  for (const char* text : {"YES", "true", " +010"}) EXPECT_TRUE(launchedWith({text})) << text;
  for (const char* text : {"no", "00", ""}) EXPECT_FALSE(launchedWith({text})) << text;
  EXPECT_TRUE(launchedWith({-0.5}));
  EXPECT_FALSE(launchedWith({0.0}));
  EXPECT_FALSE(launchedWith({Values{}}));
}

TEST_F(UserSettingsTest, StoreEveryAssignmentAndAnnounceChanges) {
  auto settings = launched();
  int announced = 0;
  const auto subscription = settings.allowList().subscribe([&] { ++announced; });
  for (int writes : {1, 2}) {
    settings.setAllowList({"Helo"});
    EXPECT_EQ(defaults.writeCount(allowListKey), writes);
    EXPECT_EQ(announced, 1) << "the same value again is no change";
  }
  settings.setIsAutoCorrectionEnabled(false);
  settings.setDisabledAppBundleIDs({"a", "b"});
  const auto relaunched = launched();
  EXPECT_FALSE(*relaunched.isAutoCorrectionEnabled());
  EXPECT_THAT(*relaunched.allowList(), ElementsAre("Helo"));
  EXPECT_THAT(*relaunched.disabledAppBundleIDs(), ElementsAre("a", "b"));
}

TEST_F(UserSettingsTest, AllowWordsInAnyLetterCase) {
  auto settings = launched();
  settings.setAllowList({"Helo", "ÉTÉ", "👩‍💻"});
  for (const char* word : {"hELO", "e\u0301té", "👩‍💻"}) {
    EXPECT_TRUE(settings.isAllowListed(word)) << word;
  }
  for (const char* word : {"hello", "ete", "👩", ""}) EXPECT_FALSE(settings.isAllowListed(word));
}

TEST_F(UserSettingsTest, AllowWhatEqualsAnEntryIgnoringCase) {
  auto settings = launched();
  const std::vector<std::string> words{"",        "K",       "\u212A", "k",      "\u00C5",
                                       "A\u030A", "a\u030a", ";",      "\u037E", "\u0130",
                                       "i\u0307", "I",       "i",      "\u03A3", "\u03C2",
                                       "\u03C3",  "\xFF",    "\xFE",   "\uFFFD"};
  for (const auto& entry : words) {
    settings.setAllowList({"other", entry});
    for (const auto& word : words) {
      EXPECT_EQ(settings.isAllowListed(word), text::equalIgnoringCase(entry, word))
          << entry << ' ' << word;
    }
  }
  settings.setAllowList({});
  EXPECT_FALSE(settings.isAllowListed("i"));
}

TEST_F(UserSettingsTest, DisableApplicationsByTheirExactIdentifier) {
  auto settings = launched();
  settings.setDisabledAppBundleIDs({"com.example.Editor"});
  EXPECT_FALSE(settings.isFrontmostAppDisabled()) << "nothing is in front";
  auto& application = workspace.addApplication({});
  workspace.activate(application);
  EXPECT_FALSE(settings.isFrontmostAppDisabled());
  application.setBundleIdentifier("com.example.editor");
  EXPECT_FALSE(settings.isFrontmostAppDisabled());
  application.setBundleIdentifier("com.example.Editor");
  EXPECT_TRUE(settings.isFrontmostAppDisabled());
  EXPECT_FALSE(settings.isCorrectionActive());
  workspace.setFrontmostHidden(true);
  EXPECT_TRUE(settings.isCorrectionActive());
  settings.setIsAutoCorrectionEnabled(false);
  EXPECT_FALSE(settings.isCorrectionActive());
}

}  // namespace
}  // namespace mirvane
