// The text of other applications as far as it needs no application: offsets, and which change of
// text belongs to which key.

#include <gtest/gtest.h>

#include "platform/linux/atspi/text_changes.h"
#include "platform/linux/atspi/text_window.h"

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

class Changes : public testing::Test {
 protected:
  TextChanges changes;
  int editor = 0, other = 0;
};

TEST_F(Changes, KeyTakesItsOwnChangeAndForgetsWhatCameBefore) {
  changes.add({&editor, true, "o"});
  changes.add({&editor, true, "hello"});
  changes.add({&editor, true, " "});
  EXPECT_FALSE(changes.takeChangeOf(&editor, "h")) << "hello was written by somebody else";
  EXPECT_TRUE(changes.takeChangeOf(&editor, " "));
  EXPECT_FALSE(changes.takeChangeOf(&editor, "o"));
}

TEST_F(Changes, OneChangeServesOneKeyOfItsApplication) {
  changes.add({&editor, true, "l"});
  EXPECT_FALSE(changes.takeChangeOf(&other, "l"));
  EXPECT_TRUE(changes.takeChangeOf(&editor, "l"));
  EXPECT_FALSE(changes.takeChangeOf(&editor, "l"));
}

TEST_F(Changes, BackspaceDeletesAndReturnMayIndent) {
  changes.add({&editor, true, "\n    "});
  changes.add({&editor, false, "x"});
  EXPECT_TRUE(changes.takeChangeOf(&editor, "\r"));
  EXPECT_TRUE(changes.takeChangeOf(&editor, "\x7F"));
}

}  // namespace
}  // namespace mirvane
