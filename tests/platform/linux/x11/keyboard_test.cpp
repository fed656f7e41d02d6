#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
#include <optional>
#include <utility>

#include "platform/linux/x11/key_typist.h"
#include "platform/linux/x11/keyboard_hold.h"
#include "platform/linux/x11/keyboard_text.h"
#include "platform/linux/x11/keyboard_watch.h"
#include "x_desk.h"

namespace mirvane {
namespace {

using Keys = std::vector<int>;

/// Most of them have no key of their own: together they need more keys than a keyboard has to
/// spare.
const std::vector<std::string> texts{"Hello, World!\n", "\"It's\" 50% (letter)", "@#~^\\{}[]|`<>",
                                     "äéß ÄÉ Привет", "Hello e\u0301 \U0001F642 οοο\n"};

Keys operator+(Keys keys, const Keys& more) {
  keys.insert(keys.end(), more.begin(), more.end());
  return keys;
}

Keys strokes(const Keys& keys) {
  Keys result;
  for (const int key : keys) result = result + Keys{key, -key};
  return result;
}

class X11KeyboardTest : public ::testing::Test {
 protected:
  X11KeyboardTest() {
    std::setlocale(LC_ALL, "");
    desk.useLayout("us");
    handOver();
  }

  /// One after the other, as slowly as people type.
  void send(const Keys& keys) {
    for (const int key : keys) {
      desk.send({key});
      handOver();
    }
  }

  /// Types while the keyboard is watched. Nobody is to take these keys for the participant's.
  bool type(std::int64_t deleteCount, const std::string& text) {
    const auto before = watched;
    auto typed = std::async(std::launch::async, [&] {
      return typist->type(desk.field(), deleteCount, text, [] { return true; });
    });
    do handOver();
    while (typed.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready);
    handOver();
    EXPECT_EQ(watched, before);
    return typed.get();
  }

  void handOver() {
    deliverEvents(watchDisplay.get(), watch);
    sync(holdDisplay);
  }

  void useLayout(const std::string& name, unsigned group = 0) {
    desk.useLayout(name, group);
    handOver();
  }

  PostedKeys posted;
  XDesk desk;
  XDisplay watchDisplay = openXDisplay();
  std::optional<KeyTypist> typist{std::in_place, openXDisplay(), posted};
  XDisplay newHoldDisplay = openXDisplay();
  _XDisplay* holdDisplay = newHoldDisplay.get();
  KeyboardHold hold{std::move(newHoldDisplay), posted};
  std::vector<SeenKey> watched;
  std::string watchedText;
  KeyboardWatch watch{
      watchDisplay.get(),
      posted,
      {[this](const WatchedKey& key) {
         if (key.scanCode == XDesk::marker) return;
         watched.push_back({key.scanCode, key.isDown, std::round(key.timestamp * 1000)});
         if (key.isDown) watchedText += key.text.value_or("");
       },
       [this](std::uint32_t scanCode) { hold.noteRelease(scanCode); },
       [this] { hold.noteKeyboardsChanged(); }}};
};

TEST_F(X11KeyboardTest, TypesAnyTextWhateverIsHeld) {
  struct Row {
    const char* layout;
    unsigned group;
    std::vector<Keys> combinations;
  };
  const std::vector<Row> rows{{"us", 0, {{}, {keyShift}}},
                              {"de", 0, {{}, {keyShift}, {keyAltGr}}},
                              {"fr", 0, {{}, {keyShift}, {keyAltGr}}},
                              {"us,ru", 1, {{}, {keyShift}}}};
  for (const auto& [layout, group, combinations] : rows) {
    useLayout(layout, group);
    for (const auto& held : combinations) {
      for (const auto& locks : std::vector<Keys>{{}, {keyCapsLock}}) {
        SCOPED_TRACE(std::string(layout) + " with " + ::testing::PrintToString(held) + " and " +
                     ::testing::PrintToString(locks));
        send(strokes(locks) + held);
        const auto before = desk.state();
        EXPECT_TRUE(typist->canType());
        for (const auto& text : texts) {
          EXPECT_TRUE(type(0, "abc"));
          EXPECT_TRUE(type(2, text));
          EXPECT_EQ(desk.takeText(), "a" + text);
        }
        EXPECT_EQ(desk.state(), before);
        for (const int key : held) send({-key});
        send(strokes(locks));
      }
    }
  }
}

TEST_F(X11KeyboardTest, TypesTheSameWhereModifiersAreSeenLate) {
  useLayout("de");
  for (const int held : {keyShift, keyAltGr}) {
    send({held});
    for (const auto* const text : {"Remember?", "fallen), \"so\"", "@ 10%\n"}) {
      EXPECT_TRUE(type(0, text));
      EXPECT_EQ(desk.takeText(false), text);
    }
    send({-held});
  }
}

TEST_F(X11KeyboardTest, TypesNothingElsewhere) {
  desk.focus(desk.otherField());
  EXPECT_FALSE(type(1, "ab"));
  desk.focus(0);
  EXPECT_FALSE(type(1, "ab"));
  desk.focus(desk.field());
  EXPECT_FALSE(type(1, "more than there are keys: абвгдежзийклмнопрстуфхцчшщъыьэюя"));
  EXPECT_TRUE(type(0, "c"));
  EXPECT_EQ(desk.takeText(), "c");
}

TEST_F(X11KeyboardTest, CannotTypeWhileAKeyMakesCommands) {
  for (const int key : {keyControl, keyAlt, keySuper}) {
    send({key});
    EXPECT_FALSE(typist->canType()) << key;
    send({-key});
    EXPECT_TRUE(typist->canType()) << key;
  }
}

TEST_F(X11KeyboardTest, BindsKeysUntilTheEnd) {
  const auto before = desk.keyboardMap();
  hold.holdBack();
  EXPECT_TRUE(type(0, "ж"));
  const auto bound = desk.keyboardMap();
  EXPECT_NE(bound, before);
  hold.giveBack(desk.field());
  send(strokes({keyA}));  // brings the hardware's own map along
  EXPECT_EQ(desk.keyboardMap(), bound);
  typist.reset();
  EXPECT_EQ(desk.keyboardMap(), before);
  send(strokes({keyA}));
  EXPECT_EQ(desk.keyboardMap(), before);
}

TEST_F(X11KeyboardTest, LeavesAnotherLayoutAlone) {
  EXPECT_TRUE(type(0, "абвгдежзийкл"));
  useLayout("br");  // which has more keys
  const auto before = desk.keyboardMap();
  typist.reset();
  EXPECT_EQ(desk.keyboardMap(), before);
}

TEST_F(X11KeyboardTest, PassesTheKeyFiltersOfTheDesktop) {
  for (const bool isSlow : {false, true}) {
    std::string typed;
    send(strokes({keyA, keyB, keyC}));
    desk.filterKeys(isSlow, true);
    EXPECT_EQ(typist->canType(), !isSlow);
    if (typist->canType()) {
      EXPECT_TRUE(type(2, "letter жжж"));
      // The same key again comes too soon for the server, or just late enough.
      EXPECT_TRUE(type(0, "b"));
      watchedText.clear();
      send(strokes({keyB}));
      typed = "letter жжжb" + watchedText;
    }
    // The hardware's keys are not held back: they would have to pass the filters twice.
    hold.holdBack();
    watched.clear();
    send({keyA});
    const auto end = std::chrono::steady_clock::now() + XDesk::patience;
    while (watched.empty() && std::chrono::steady_clock::now() < end) handOver();
    send({-keyA});
    EXPECT_EQ(watched.size(), 2U);
    desk.filterKeys(false, false);
    EXPECT_EQ(desk.takeText(), (isSlow ? "abc" : "a" + typed) + "a");
    hold.giveBack(desk.field());
  }
}

TEST_F(X11KeyboardTest, WatchesTheHardwareAndOtherPrograms) {
  struct Row {
    const char* layout;
    unsigned group;
    Keys keys;
    const char* text;
  };
  const Keys shifted{keyShift, keyA, -keyA, -keyShift}, alternate{keyAltGr, keyQ, -keyQ, -keyAltGr};
  const std::vector<Row> rows{
      {"us", 0, shifted + strokes({keyY, keyQ}), "Ayq"},
      {"de", 0, alternate + strokes({keyY, keyAcute, keyE}), "@zé"},
      {"fr", 0, strokes({keyQ, keyA, keyBackspace}), "aq\x7F"},
      {"us -option compose:menu", 0, strokes({keyMenu, keyApostrophe, keyE, keyQ}), "éq"},
      {"us,ru", 1, shifted + strokes({keyQ}), "Фй"},
      {"us", 0, strokes({keyCapsLock, keyQ, keyCapsLock, keyQ}), "Qq"}};
  for (const auto& [layout, group, keys, text] : rows) {
    SCOPED_TRACE(text);
    useLayout(layout, group);
    watched.clear();
    watchedText.clear();
    send(keys);
    EXPECT_EQ(watched, desk.takeSent());
    EXPECT_EQ(watched.size(), keys.size());
    EXPECT_EQ(watchedText, text);
    for (const int key : keys) {
      desk.post({key});
      handOver();
    }
    EXPECT_EQ(watched.size(), 2 * keys.size());
    EXPECT_EQ(watchedText, std::string(text) + text);
  }
}

TEST_F(X11KeyboardTest, TypesWithALayoutThatOnlyTheHardwareHas) {
  const std::string twoLayouts = "ru,de -option grp:menu_toggle";
  for (const auto& [layout, z] :
       {std::pair(std::string("de"), keyY), {"fr", keyW}, {twoLayouts, keyY}}) {
    SCOPED_TRACE(layout);
    desk.useHardwareLayout(layout);
    if (layout == twoLayouts) send(strokes({keyMenu}));
    send(strokes({z}));
    watchedText.clear();
    hold.holdBack();
    watch.shareLayout();
    send(strokes({z, keyA}));
    EXPECT_TRUE(type(0, "yzß"));
    hold.giveBack(desk.field());
    handOver();
    send(strokes({z}));
    EXPECT_EQ(desk.takeText(), "zyzß" + watchedText);
    EXPECT_EQ(watchedText, z == keyY ? "zaz" : "zqz");
  }
}

TEST_F(X11KeyboardTest, TellsKeysThatWorkOnOthersFromTyping) {
  useLayout("de neo");
  const KeyboardText text(watchDisplay.get());
  for (const int key :
       {keyShift, keyAltGr, keyControl, keySuper, keyLevel3OfNeo, keyMute, keyBrightnessUp}) {
    EXPECT_TRUE(text.isApartFromTyping(static_cast<std::uint32_t>(key))) << key;
  }
  for (const int key : {keyA, keySpace, keyBackspace, keyBack, XDesk::marker}) {
    EXPECT_FALSE(text.isApartFromTyping(static_cast<std::uint32_t>(key))) << key;
  }
}

TEST_F(X11KeyboardTest, LosesNoKeyThatComesWhileOthersAreGivenBack) {
  bool hasCome = true;
  for (int calls = 1; hasCome; ++calls) {
    SCOPED_TRACE(calls);
    hasCome = false;
    watched.clear();
    hold.holdBack();
    send(strokes({keyA}));
    afterCalls(holdDisplay, calls, [&] {
      desk.sendSoon(strokes({keyB}));
      hasCome = true;
    });
    hold.giveBack(desk.field());
    afterCalls(holdDisplay, 0, {});
    handOver();
    send(strokes({keyC}));
    EXPECT_EQ(desk.takeText(), hasCome ? "abc" : "ac");
    EXPECT_EQ(watched, desk.takeSent());
    EXPECT_EQ(desk.state(), KeyboardState());
  }
}

TEST_F(X11KeyboardTest, LetsNoKeyOvertakeThoseGivenBack) {
  bool hasCome = true;
  for (int calls = 1; hasCome; ++calls) {
    for (const int callsBetween : {1, 2, 4, 8}) {
      SCOPED_TRACE(::testing::Message() << calls << " and " << callsBetween);
      hasCome = false;
      Keys left{keyA, -keyA, -keyShift};
      hold.holdBack();
      send(strokes({keyB}));
      afterCalls(holdDisplay, calls, [&] {
        desk.sendSoon({keyShift});
        hasCome = true;
        afterCalls(holdDisplay, callsBetween, [&] { desk.sendSoon(std::exchange(left, {})); });
      });
      hold.giveBack(desk.field());
      afterCalls(holdDisplay, 0, {});
      if (hasCome) desk.send(left);
      handOver();
      EXPECT_EQ(desk.takeText(), hasCome ? "bA" : "b");
      EXPECT_EQ(desk.state(), KeyboardState());
    }
  }
}

TEST_F(X11KeyboardTest, TellsWhoHasTheKeyboard) {
  desk.grabKeyboard(true);
  EXPECT_TRUE(hold.isKeyboardTaken());
  desk.grabKeyboard(false);
  EXPECT_FALSE(hold.isKeyboardTaken());
  send(strokes({keyA}));
  EXPECT_EQ(desk.takeText(), "a");
}

TEST_F(X11KeyboardTest, GivesHeldKeysBackBehindWhatWasTyped) {
  struct Row {
    Keys before, within, after;
    const char* text;  ///< of the participant
  };
  const Keys a = strokes({keyA}), b = strokes({keyB}), c = strokes({keyC}),
             caps = strokes({keyCapsLock});
  const std::vector<Row> rows{
      {{}, a + b + a, c, "abac"},
      {{}, {keyA, keyB, -keyA, -keyB}, c, "abc"},
      {{keyA}, {-keyA}, a, "aa"},                       // released within
      {{}, {keyA}, Keys{-keyA} + a, "aa"},              // pressed within
      {{keyA}, {-keyA, keyA}, Keys{-keyA} + a, "aaa"},  // both
      {{keyShift}, a + Keys{-keyShift} + b, c, "Abc"},
      {{}, Keys{keyShift} + a, b + Keys{-keyShift} + c, "ABc"},
      {{}, Keys{keyShift} + a + Keys{-keyShift} + b, c, "Abc"},
      {c, Keys{keyShift} + a + Keys{-keyShift} + b, c, "cAbc"},
      {{keyShift}, a, b + Keys{-keyShift} + c, "ABc"},
      {caps, a + caps + b, c, "Abc"},
      {{}, caps + a, b + caps + c, "ABc"},
  };
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (const auto& [depth, typed] : {std::pair(1, std::string()), {1, "éaЖ"}, {2, "éaЖ"}}) {
      SCOPED_TRACE(::testing::Message() << "row " << row << ", depth " << depth << typed);
      const auto& [before, within, after, text] = rows[row];
      watched.clear();
      watchedText.clear();
      const auto atFirst = desk.state();
      send(before);
      std::string seen;
      if (!typed.empty()) seen = desk.takeText();
      for (int i = 0; i < depth; ++i) hold.holdBack();
      send(within);
      if (!typed.empty()) {
        EXPECT_TRUE(type(0, typed));
        for (int i = 1; i < depth; ++i) hold.giveBack(desk.field());
        EXPECT_EQ(desk.takeText(), typed);  // and none of the held ones
      }
      hold.giveBack(desk.field());
      handOver();
      send(after);
      EXPECT_EQ(seen + desk.takeText(), text);
      EXPECT_EQ(desk.state(), atFirst);
      EXPECT_EQ(watched, desk.takeSent());
      EXPECT_EQ(watchedText, text);
    }
  }
}

TEST_F(X11KeyboardTest, LosesHeldKeysRatherThanTypingThemElsewhere) {
  for (const auto& before : std::vector<Keys>{{}, {keyB}, {keyAltGr}}) {
    send(before);
    (void)desk.takeText();
    watched.clear();
    (void)desk.takeSent();
    const auto atFirst = desk.state();
    hold.holdBack();
    send(strokes({keyA}) + Keys{keyShift, keyC});
    desk.focus(desk.otherField());
    hold.giveBack(desk.field());
    handOver();
    EXPECT_THAT(watched, ::testing::ElementsAre(::testing::Field(&SeenKey::scanCode, keyShift)));
    send({-keyC, -keyShift});
    EXPECT_EQ(desk.state(), atFirst);
    for (const int key : before) send({-key});
    EXPECT_EQ(desk.state(), KeyboardState());
    send(strokes({keyA}));
    EXPECT_EQ(desk.takeText(), "a");
    desk.focus(desk.field());
  }
}

TEST_F(X11KeyboardTest, LeavesNoKeyDown) {
  std::optional<KeyboardHold> brief(std::in_place, openXDisplay(), posted);
  brief->holdBack();
  send({keyA});
  brief->giveBack(desk.field());
  brief.reset();
  EXPECT_EQ(desk.state(), KeyboardState());
  send({-keyA});
  EXPECT_EQ(desk.state(), KeyboardState());
}

TEST_F(X11KeyboardTest, LetsGoOfAKeyboardThatIsDisabledWhileItIsHeldBack) {
  hold.holdBack();
  desk.sendSoon({keyA, -keyA});
  desk.setKeyboardEnabled(false);
  hold.giveBack(desk.field());
  sync(holdDisplay);  // a server that has crashed ends this program
  handOver();
  desk.setKeyboardEnabled(true);
  handOver();
  (void)desk.takeText();
  send(strokes({keyB}));
  EXPECT_EQ(desk.takeText(), "b");
  hold.holdBack();
  send(strokes({keyC}));
  EXPECT_EQ(desk.takeText(), "") << "the keyboard is held back again";
  hold.giveBack(desk.field());
  handOver();
  EXPECT_EQ(desk.takeText(), "c");
  send(strokes({keyA}));
  EXPECT_EQ(desk.takeText(), "a") << "and given back";
}

TEST_F(X11KeyboardTest, ComposesTextsOfAnyLength) {
  const std::string composed(200, 'x');
  const auto path = std::filesystem::path(testing::TempDir()) / "long.compose";
  std::ofstream(path) << "<a> <b> : \"" << composed << "\"\n";
  setenv("XCOMPOSEFILE", path.c_str(), 1);
  KeyboardText text(watchDisplay.get());
  unsetenv("XCOMPOSEFILE");
  EXPECT_EQ(text.press(keyA), std::nullopt);
  EXPECT_EQ(text.press(keyB), composed);
}

}  // namespace
}  // namespace mirvane
