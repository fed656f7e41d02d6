#include "capture/typed_word_buffer.h"

#include <gtest/gtest.h>

#include "platform/key_codes.h"
#include "platform/simulated/key_layout.h"
#include "text/characters.h"

namespace mirvane {
namespace {

void strike(TypedWordBuffer& buffer, const std::string& text, std::uint16_t keyCode,
            std::uint64_t flags = 0) {
  buffer.handle({{}, keyCode, text, 0, flags, {}, {}});
}

/// A buffer after the keys of a text; "\b" is Backspace.
TypedWordBuffer typed(std::string_view text) {
  TypedWordBuffer buffer;
  for (const auto character : text::characters(text)) {
    const auto key = simulated::keyStrokeOrText(character);
    strike(buffer, key.text.value_or(""), key.keyCode, key.modifierFlags);
  }
  return buffer;
}

/// "current" or "current after word+boundary".
std::string shown(const TypedWordBuffer& buffer) {
  const auto& last = buffer.lastCompletedWord();
  return buffer.currentWord() + (last ? " after " + last->word + last->boundaryCharacter : "");
}

TEST(TypedWordBuffer, AssemblesWords) {
  const std::pair<const char*, const char*> rows[] = {
      {"helo ", " after helo "},
      {"Hi1", "Hi1"},
      {"don't,", " after don't,"},
      {"one two", "two after one "},
      {"one two.", " after two."},
      {"one\n", " after one\r"},
      {"one\u3000", " after one\u3000"},
      {"ab\bc", "ac"},
      {"helo \bx", "x"},
      {"one tw\b", "t after one "},
      {"one t\b", " after one "},
      {"e\u0301t", "e\u0301t"},
      {"ne\u0301\b", "n"},
  };
  for (const auto& [text, expected] : rows) EXPECT_EQ(shown(typed(text)), expected) << text;
  for (const char* text : {" ", "one, ", "one  ", "ab\b\b\b", "helo \b", "one t\b\b", "x-",
                           "one x@", "x\u00e9", "x\u2019", "one 日", "one 😀"}) {
    EXPECT_EQ(shown(typed(text)), "") << text;
  }
}

TEST(TypedWordBuffer, ForgetsBothWordsAtKeysThatLeaveTheWord) {
  using namespace keycode;
  for (const std::uint16_t key :
       {home, pageUp, end, pageDown, leftArrow, rightArrow, downArrow, upArrow, escape}) {
    auto buffer = typed("one two");
    strike(buffer, "\uF700", key);
    EXPECT_EQ(shown(buffer), "") << key;
  }
  for (const auto flag : {modifier::control, modifier::option, modifier::command}) {
    auto buffer = typed("one two");
    strike(buffer, "c", 8, flag | modifier::shift);
    EXPECT_EQ(shown(buffer), "") << flag;
    buffer = typed("one two");
    strike(buffer, "\b", deleteKey, flag);
    EXPECT_EQ(shown(buffer), "") << "Backspace with " << flag;
  }
  auto buffer = typed("one two");
  strike(buffer, "´e", 0);
  EXPECT_EQ(shown(buffer), "") << "two characters at once";
}

TEST(TypedWordBuffer, KeepsTheWordAtKeysWithoutTextAndWithCapsLock) {
  auto buffer = typed("one tw");
  strike(buffer, "", 10);
  strike(buffer, "", keycode::forwardDelete);
  strike(buffer, "O", 31, modifier::capsLock | modifier::shift);
  EXPECT_EQ(shown(buffer), "twO after one ");
}

TEST(TypedWordBuffer, TakesOverWhatACorrectionPutThere) {
  auto buffer = typed("teh x");
  buffer.replaceCompletedWord({"the", "'"});
  EXPECT_EQ(shown(buffer), " after the'");
  buffer.replaceCurrentWord("thé");
  buffer.deleteBackward();
  EXPECT_EQ(shown(buffer), "th after the'");
  EXPECT_EQ((CompletedTypedWord{"e\u0301", " "}), (CompletedTypedWord{"é", " "}));
  EXPECT_NE((CompletedTypedWord{"é", " "}), (CompletedTypedWord{"é", ","}));
}

}  // namespace
}  // namespace mirvane
