#include "correct/accessibility_text_replacement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "capture/key_input_tracker.h"
#include "platform/key_codes.h"
#include "platform/simulated/desktop.h"

namespace mirvane {
namespace {

using simulated::ElementKind;

class Replacement : public testing::Test {
 protected:
  AXReplacementTarget targetOf(Utf16Range range, std::optional<std::int64_t> caretAfter = {}) {
    return {desktop.accessibility().focusedElement(), range, caretAfter};
  }

  simulated::Desktop desktop;
  AccessibilityTextReplacement replacement{desktop.poster()};
};

TEST_F(Replacement, WithATargetHappensInPlace) {
  const auto& element = desktop.openElement(ElementKind::multiLine, "😀 helo there");
  const auto result = replacement.replaceFinishedWord("helo", " ", "hellö", targetOf({3, 4}, 9));
  EXPECT_EQ(result, ReplacementResult::accessibility);
  EXPECT_EQ(element.text(), "😀 hellö there");
  EXPECT_EQ(element.selection(), (Utf16Range{9, 0}));
  replacement.replaceCurrentWord("hellö", "x😀", targetOf({3, 5}));
  EXPECT_EQ(element.text(), "😀 x😀 there");
  EXPECT_EQ(element.selection(), (Utf16Range{6, 0})) << "right behind the new text";
  EXPECT_TRUE(desktop.poster().posted().empty());
}

TEST_F(Replacement, WithoutATargetTypesBackspacesAndThenTheTextAsOneKey) {
  const auto& element = desktop.openElement(ElementKind::withoutAccessibility, "say helo ");
  EXPECT_EQ(replacement.replaceFinishedWord("helo", " ", "hello", std::nullopt),
            ReplacementResult::keyEvents);
  const auto& posted = desktop.poster().posted();
  ASSERT_EQ(posted.size(), 12U);
  for (std::size_t i = 0; i < 10; ++i) {
    EXPECT_EQ(posted[i].keyCode, keycode::deleteKey);
    EXPECT_EQ(posted[i].isDown, i % 2 == 0);
  }
  for (std::size_t i = 10; i < 12; ++i) {
    EXPECT_EQ(posted[i].keyCode, keycode::text);
    EXPECT_EQ(posted[i].text, "hello ");
    EXPECT_EQ(posted[i].modifierFlags, 0U);
    EXPECT_EQ(posted[i].isDown, i == 10);
  }
  desktop.settle();
  EXPECT_EQ(element.text(), "say hello ");
}

TEST_F(Replacement, CountsBackspacesInUtf16Units) {
  replacement.replaceCurrentWord("😀é", "x", std::nullopt);
  EXPECT_EQ(desktop.poster().posted().size(), 2U * 3 + 2);
  desktop.poster().clearPosted();
  replacement.replaceCycledText("one", ",", "two", std::nullopt);
  EXPECT_EQ(desktop.poster().posted().size(), 2U * 4 + 2);
  EXPECT_EQ(desktop.poster().posted().back().text, "two,");
}

TEST_F(Replacement, TypesNothingWhereThereIsNothingToTypeOrItMayNot) {
  EXPECT_FALSE(replacement.sendKeystrokes(0, ""));
  EXPECT_FALSE(replacement.sendKeystrokes(-1, "x"));
  desktop.secureInput().setHeldElsewhere(true);
  EXPECT_FALSE(replacement.sendKeystrokes(1, "x"));
  EXPECT_EQ(replacement.replaceCurrentWord("a", "b", std::nullopt), ReplacementResult::failed);
  desktop.secureInput().setHeldElsewhere(false);
  desktop.poster().setRefusesSources(true);
  EXPECT_FALSE(replacement.sendKeystrokes(1, "x"));
  EXPECT_TRUE(desktop.poster().posted().empty());
}

}  // namespace
}  // namespace mirvane
