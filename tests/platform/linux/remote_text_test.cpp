// The text of other applications as far as it needs no application: offsets, which change of text
// belongs to which key, and which word the keys were typed into.

#include <gtest/gtest.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/atspi/key_effects.h"
#include "platform/linux/atspi/shown_text.h"
#include "platform/linux/atspi/text_window.h"
#include "text/utf16.h"

namespace mirvane {
namespace {

TEST(TextWindow, CodePointsAndUtf16UnitsAreTheSameWithoutPairs) {
  const TextWindow window(TextUnit::codePoint, 1000, 100, u"hello wrold");
  for (const std::int64_t offset : {0, 100, 105, 111, 1000}) {
    EXPECT_EQ(window.toUtf16(offset), offset);
    EXPECT_EQ(window.toApplication(offset), offset);
  }
  EXPECT_EQ(window.text({106, 5}), u"wrold");
}

TEST(TextWindow, PairsCountTwiceForUsAndOnceForTheApplication) {
  // Emoji, letter, emoji, then three letters; the window begins behind 10 units nobody has seen.
  const TextWindow window(TextUnit::codePoint, 20, 10, u"\U0001F600a\U0001F600bcd");
  struct Row {
    std::int64_t application, utf16;
  };
  for (const auto& [application, utf16] :
       {Row{0, 0}, {10, 10}, {11, 12}, {12, 13}, {13, 15}, {14, 16}, {16, 18}, {20, 22}}) {
    EXPECT_EQ(window.toUtf16(application), utf16) << application;
    EXPECT_EQ(window.toApplication(utf16), application) << utf16;
  }
  EXPECT_EQ(window.utf16Length(), 22);
  EXPECT_EQ(window.text({15, 3}), u"bcd");
}

TEST(TextWindow, ToolkitsThatCountAsWeDoAreLeftAlone) {
  const TextWindow window(TextUnit::utf16, 12, 0, u"\U0001F600 helo");
  EXPECT_EQ(window.toUtf16(3), 3);
  EXPECT_EQ(window.toApplication(7), 7);
  EXPECT_EQ(window.utf16Length(), 12);
}

TEST(TextWindow, AnswersOnlyWhatItHolds) {
  const TextWindow window(TextUnit::codePoint, 1000, 100, u"hello");
  EXPECT_EQ(window.text({99, 2}), std::nullopt);
  EXPECT_EQ(window.text({104, 2}), std::nullopt);
  EXPECT_EQ(window.text({100, -1}), std::nullopt);
  EXPECT_EQ(window.text({105, 0}), u"");
}

FieldContent contentBefore(std::u16string before) {
  const auto caret = static_cast<std::int64_t>(before.size());
  return {TextWindow(TextUnit::utf16, caret, 0, std::move(before)), {caret, 0}};
}

TEST(ShownText, EndsInTheWordThatTheKeysWereTypedInto) {
  struct Row {
    std::u16string seen;
    std::vector<std::string> typedUnseen;
    std::u16string now;
    bool isSameWord;
  };
  for (const auto& [seen, typedUnseen, now, isSameWord] : std::initializer_list<Row>{
           {u"so helo", {}, u"so helo ", true},
           {u"so helo", {}, u"so helo.\n    ", true},
           {u"so helo", {}, u"other helo ", true},
           {u"so (\"helo", {}, u"so (\"helo\") ", true},
           {u"so he", {"l", "o"}, u"so helo ", true},
           {u"so", {"\r", "h", "i"}, u"so\nhi ", true},
           {u"so helo", {}, u"Mr Wqxd ", false},
           {u"so helo", {}, u"", false},
           {u"so helo", {}, u"helohelo ", false},
           {u"so he", {"l"}, u"so helo ", false},
           {u"so helo", {"\x7F"}, u"so helo ", false},
       }) {
    ShownText shown;
    EXPECT_FALSE(shown.endsInWordOf(contentBefore(now)));
    shown.see(contentBefore(seen));
    for (const auto& typed : typedUnseen) shown.add(typed);
    EXPECT_EQ(shown.endsInWordOf(contentBefore(now)), isSameWord) << text::toUtf8(now);
    shown.add(std::nullopt);
    EXPECT_FALSE(shown.endsInWordOf(contentBefore(now)));
  }
}

class Effects : public testing::Test {
 protected:
  KeyEffects::Id press(std::string_view text, int millisecond = 0) {
    return effects.expect(editor, text, start + std::chrono::milliseconds(millisecond));
  }
  void insert(std::string text, int millisecond = 500) {
    effects.note(editor, {true, std::move(text)}, start + std::chrono::milliseconds(millisecond));
  }

  KeyEffects effects;
  const char* const editor = ":1.1";
  const char* const other = ":1.2";
  KeyEffects::Clock::time_point start{};
};

TEST_F(Effects, InsertionOfJustItsTextShowsAKey) {
  const auto key = press("l");
  effects.note(other, {true, "l"}, start);
  effects.note(editor, {false, "l"}, start);
  insert("hello");
  EXPECT_FALSE(effects.isShown(key)) << "another application, a deletion, another cause";
  insert("l");
  EXPECT_TRUE(effects.isShown(key));
}

TEST_F(Effects, ChangeBelongsToTheEarliestKeyOfAnApplicationThatIsBehind) {
  const auto first = press(" "), letter = press("a"), second = press(" ");
  insert(" ");
  EXPECT_TRUE(effects.isShown(first));
  EXPECT_FALSE(effects.isShown(second));
  insert("a");
  EXPECT_TRUE(effects.isShown(letter));
  insert(" ");
  EXPECT_TRUE(effects.isShown(second));
}

TEST_F(Effects, ChangeMayBeAnnouncedBeforeTheKeyIsLookedAt) {
  insert("a", 90);
  insert("b", 110);
  EXPECT_FALSE(effects.isShown(press("a", 100))) << "announced before it was pressed";
  insert("a", 120);
  EXPECT_TRUE(effects.isShown(press("b", 100)));
  EXPECT_FALSE(effects.isShown(press("b", 100))) << "each change serves one key";
}

TEST_F(Effects, KeysWithoutEffectAreGivenUp) {
  const auto ignored = press("x", 0), late = press("y", 400);
  effects.giveUp(editor, start + std::chrono::milliseconds(100));
  EXPECT_TRUE(effects.isShown(ignored));
  EXPECT_FALSE(effects.isShown(late));
  const auto next = press("z", 500);
  insert("z");
  EXPECT_TRUE(effects.isShown(late)) << "a later key's effect passes it by";
  EXPECT_TRUE(effects.isShown(next));
}

TEST_F(Effects, BackspaceDeletesAndReturnMayIndent) {
  const auto key = press("\r"), backspace = press("\x7F");
  insert("\n    ");
  EXPECT_TRUE(effects.isShown(key));
  EXPECT_FALSE(effects.isShown(backspace));
  effects.note(editor, {false, "x"}, start);
  EXPECT_TRUE(effects.isShown(backspace));
}

TEST_F(Effects, RichTextWritesTheSpaceBeforeALetterAnew) {
  const auto space = press(" "), letter = press("a");
  insert("\u00A0");
  EXPECT_TRUE(effects.isShown(space));
  EXPECT_FALSE(effects.isShown(letter));
  effects.note(editor, {false, "\u00A0"}, start);
  insert(" a");
  EXPECT_TRUE(effects.isShown(letter));

  const auto b = press("b"), c = press("c");
  insert("\u00A0bc");
  EXPECT_TRUE(effects.isShown(b));
  EXPECT_TRUE(effects.isShown(c));

  insert(" de", 600);
  EXPECT_TRUE(effects.isShown(press("d", 550)));
  EXPECT_TRUE(effects.isShown(press("e", 550)));
}

TEST_F(Effects, NewParagraphOfARichTextShowsReturn) {
  const auto key = press("\r");
  insert("\uFFFC");
  EXPECT_TRUE(effects.isShown(key));
}

}  // namespace
}  // namespace mirvane
