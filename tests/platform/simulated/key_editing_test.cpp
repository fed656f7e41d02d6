#include "platform/simulated/key_editing.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/key_codes.h"
#include "platform/simulated/key_layout.h"
#include "tests/platform/simulated/text_with_caret.h"

namespace mirvane::simulated {
namespace {

constexpr std::uint64_t shift = modifier::shift;
constexpr std::uint16_t anyKey = 0;

struct EditingCase {
  const char* name;
  const char* before;
  std::vector<KeyStroke> keys;
  const char* after;
  ElementKind kind = ElementKind::multiLine;
};

KeyStroke key(std::uint16_t code, std::uint64_t flags = 0) {
  return {code, std::nullopt, flags};
}

KeyStroke textKey(std::string text, std::uint64_t flags = 0) {
  return {anyKey, text, flags};
}

void strikeAll(const std::vector<KeyStroke>& keys, TextElement& element) {
  for (const auto& [code, text, flags] : keys) {
    applyKey({EventMask::keyDown, code, text, flags, 0, std::nullopt}, element);
  }
}

class KeyEditing : public testing::TestWithParam<EditingCase> {};

TEST_P(KeyEditing, LeavesTextAndSelection) {
  TextElement element = elementShowing(GetParam().before, GetParam().kind);
  strikeAll(GetParam().keys, element);
  EXPECT_EQ(shownBy(element), GetParam().after);
}

std::string nameOf(const testing::TestParamInfo<EditingCase>& info) {
  return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Typing, KeyEditing,
    testing::Values(EditingCase{"InsertsAtTheCaret", "h|lo", {textKey("e")}, "he|lo"},
                    EditingCase{"ReplacesTheSelection", "h^XY|lo", {textKey("e")}, "he|lo"},
                    EditingCase{"InsertsEmoji", "a|b", {textKey("😀")}, "a😀|b"},
                    EditingCase{"InsertsWithOption", "|", {textKey("å", modifier::option)}, "å|"},
                    EditingCase{"IgnoresControl", "^a|", {textKey("b", modifier::control)}, "^a|"},
                    EditingCase{"IgnoresCommand", "^a|", {textKey("v", modifier::command)}, "^a|"},
                    EditingCase{"IgnoresCommandReturn", "a|", {key(36, modifier::command)}, "a|"},
                    EditingCase{"IgnoresControlCharacter", "^a|", {textKey("\x01")}, "^a|"},
                    EditingCase{"IgnoresDeleteCharacter", "^a|", {textKey("\x7f")}, "^a|"},
                    EditingCase{"IgnoresFirstFunctionKey", "^a|", {textKey("\uF700")}, "^a|"},
                    EditingCase{"IgnoresLastFunctionKey", "^a|", {textKey("\uF8FF")}, "^a|"},
                    EditingCase{
                        "InsertsBehindTheFunctionKeys", "a|", {textKey("\uF900")}, "a\uF900|"},
                    EditingCase{"IgnoresKeysWithoutText", "^a|", {key(anyKey), textKey("")}, "^a|"},
                    EditingCase{"IgnoresEscape", "^a|", {{keycode::escape, "\x1b", 0}}, "^a|"},
                    EditingCase{"ReturnBreaksTheLine", "a|b", {{36, "\r", 0}}, "a\n|b"},
                    EditingCase{"KeypadEnterBreaksTheLine", "a|b", {{76, "\x03", 0}}, "a\n|b"},
                    EditingCase{"CarriageReturnTextIsALineBreak", "|", {textKey("\r")}, "\n|"},
                    EditingCase{"CarriageReturnLineFeedIsOne", "|", {textKey("\r\n")}, "\n|"},
                    EditingCase{"TabInsertsATab", "a|", {{keycode::tab, "\t", 0}}, "a\t|"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Deleting, KeyEditing,
    testing::Values(EditingCase{"BackspaceTakesOneCharacter", "abc|", {key(51)}, "ab|"},
                    EditingCase{"BackspaceTakesTheSelection", "a^bc|d", {key(51)}, "a|d"},
                    EditingCase{"BackspaceAtTheStart", "|a", {key(51)}, "|a"},
                    EditingCase{"BackspaceJoinsLines", "a\n|b", {key(51)}, "a|b"},
                    EditingCase{"BackspaceTakesASurrogatePair", "a😀|b", {key(51)}, "a|b"},
                    EditingCase{
                        "BackspaceTakesTheCombiningMark", "caf\u0065\u0301|", {key(51)}, "caf|"},
                    EditingCase{"BackspaceTakesAFamily", "x👨‍👩‍👧|", {key(51)}, "x|"},
                    EditingCase{"BackspaceTakesOneFlag", "🇩🇪🇫🇷|", {key(51)}, "🇩🇪|"},
                    EditingCase{"ForwardDeleteTakesOneCharacter", "a|bc", {key(117)}, "a|c"},
                    EditingCase{"ForwardDeleteTakesTheSelection", "a^b|c", {key(117)}, "a|c"},
                    EditingCase{"ForwardDeleteAtTheEnd", "a|", {key(117)}, "a|"},
                    EditingCase{"ForwardDeleteTakesACluster", "a|e\u0301😀", {key(117)}, "a|😀"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Moving, KeyEditing,
    testing::Values(
        EditingCase{"LeftByACharacter", "ae\u0301|", {key(123)}, "a|e\u0301"},
        EditingCase{"RightByACharacter", "|👍🏽a", {key(124)}, "👍🏽|a"},
        EditingCase{"LeftStopsAtTheStart", "|a", {key(123)}, "|a"},
        EditingCase{"LeftCollapsesToTheStart", "a^bc|d", {key(123)}, "a|bcd"},
        EditingCase{"RightCollapsesToTheEnd", "a^bc|d", {key(124)}, "abc|d"},
        EditingCase{"ShiftLeftExtends", "abc|", {key(123, shift), key(123, shift)}, "a^bc|"},
        EditingCase{"ShiftRightShrinks", "ab|c", {key(123, shift), key(124, shift)}, "ab|c"},
        EditingCase{"ShiftHomeSelectsTheLine", "x\nab|c", {key(115, shift)}, "x\n^ab|c"},
        EditingCase{"HomeToTheLineStart", "x\nab|c", {key(115)}, "x\n|abc"},
        EditingCase{"EndToTheLineEnd", "a|bc\nx", {key(119)}, "abc|\nx"},
        EditingCase{"UpKeepsTheColumn", "abc\nde|f", {key(126)}, "ab|c\ndef"},
        EditingCase{"DownKeepsTheColumn", "ab|c\ndef", {key(125)}, "abc\nde|f"},
        EditingCase{"UpOverAShortLine", "abc\n\nde|f", {key(126), key(126)}, "ab|c\n\ndef"},
        EditingCase{"UpInTheFirstLine", "ab|c", {key(126)}, "|abc"},
        EditingCase{"DownInTheLastLine", "a|bc", {key(125)}, "abc|"},
        EditingCase{"UpAvoidsHalfACharacter", "😀b\na|", {key(126)}, "|😀b\na"},
        EditingCase{"ShiftDownExtends", "a|b\ncd", {key(125, shift)}, "a^b\nc|d"},
        EditingCase{"PageUpToTheStart", "a\nb\nc|", {key(116)}, "|a\nb\nc"},
        EditingCase{"PageDownToTheEnd", "a|\nb\nc", {key(121)}, "a\nb\nc|"},
        EditingCase{
            "TypingForgetsTheColumn", "abc|\n\n", {key(125), textKey("x"), key(126)}, "a|bc\nx\n"}),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Kinds, KeyEditing,
    testing::Values(
        EditingCase{
            "SingleLineIgnoresReturn", "^a|b", {{36, "\r", 0}}, "^a|b", ElementKind::singleLine},
        EditingCase{
            "SingleLineIgnoresTab", "^a|b", {{48, "\t", 0}}, "^a|b", ElementKind::singleLine},
        EditingCase{
            "SingleLineDropsBreaks", "|", {textKey("a\r\nb")}, "ab|", ElementKind::singleLine},
        EditingCase{"SingleLineIgnoresBreakAlone",
                    "^a|b",
                    {textKey("\r")},
                    "^a|b",
                    ElementKind::singleLine},
        EditingCase{
            "PasswordTakesKeys", "a|", {textKey("b"), key(36)}, "ab|", ElementKind::password},
        EditingCase{"ReadOnlyKeepsItsText",
                    "^a|b",
                    {textKey("x"), key(51), key(117), key(36)},
                    "^a|b",
                    ElementKind::readOnly},
        EditingCase{"ReadOnlyMovesTheCaret", "ab|", {key(123)}, "a|b", ElementKind::readOnly},
        EditingCase{"DeafToAccessibilityTakesKeys",
                    "a|",
                    {textKey("b")},
                    "ab|",
                    ElementKind::ignoresAccessibilityWrites},
        EditingCase{"WithoutAccessibilityTakesKeys",
                    "a|",
                    {textKey("b")},
                    "ab|",
                    ElementKind::withoutAccessibility}),
    nameOf);

}  // namespace
}  // namespace mirvane::simulated
