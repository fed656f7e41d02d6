#include "platform/simulated/key_editing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

#include "platform/key_codes.h"
#include "platform/simulated/key_layout.h"
#include "platform/simulated/text_element.h"
#include "text/characters.h"
#include "text/utf16.h"

namespace mirvane::simulated {
namespace {

using enum ElementKind;

const std::map<std::string_view, std::uint64_t> modifiers{{"⇧", modifier::shift},
                                                          {"⌃", modifier::control},
                                                          {"⌥", modifier::option},
                                                          {"⌘", modifier::command}};

const std::map<std::string_view, KeyStroke> namedKeys{
    {"←", {123, {}, 0}},  {"→", {124, {}, 0}},    {"↑", {126, {}, 0}},  {"↓", {125, {}, 0}},
    {"⇱", {115, {}, 0}},  {"⇲", {119, {}, 0}},    {"⇞", {116, {}, 0}},  {"⇟", {121, {}, 0}},
    {"⌫", {51, {}, 0}},   {"⌦", {117, {}, 0}},    {"↩", {36, "\r", 0}}, {"⌤", {76, "\x03", 0}},
    {"⇥", {48, "\t", 0}}, {"⎋", {53, "\x1b", 0}}, {"○", {0, {}, 0}},    {"∅", {0, "", 0}}};

/// The strokes of a row: a modifier goes with the next key, and what has no name types itself.
std::vector<KeyStroke> strokes(std::string_view keys) {
  std::vector<KeyStroke> result;
  std::uint64_t flags = 0;
  for (const auto character : text::characters(keys)) {
    if (const auto modifier = modifiers.find(character); modifier != modifiers.end()) {
      flags |= modifier->second;
      continue;
    }
    const auto named = namedKeys.find(character);
    result.push_back(named != namedKeys.end() ? named->second
                                              : KeyStroke{0, std::string(character), 0});
    result.back().modifierFlags = std::exchange(flags, 0);
  }
  return result;
}

TextElement elementShowing(std::string_view marked, ElementKind kind) {
  std::u16string text = text::toUtf16(marked);
  const std::size_t anchorMark = text.find(u'^');
  if (anchorMark != std::u16string::npos) text.erase(anchorMark, 1);
  const std::size_t caret = text.find(u'|');
  text.erase(caret, 1);
  const std::size_t anchor = std::min(anchorMark, caret);
  TextElement element(kind, text::toUtf8(text));
  element.select({static_cast<std::int64_t>(anchor), static_cast<std::int64_t>(caret - anchor)});
  return element;
}

std::string shownBy(const TextElement& element) {
  const auto [from, length] = element.selection();
  std::string shown = text::toUtf8(element.slice({0, from}));
  if (length > 0) shown += '^' + text::toUtf8(element.slice({from, length}));
  return shown + '|' + text::toUtf8(element.slice({from + length, element.length()}));
}

/// Every row is "before keys after". In the texts "|" marks the caret and "^", if there is one, the
/// other end of the selection.
void expectEdits(std::initializer_list<std::string_view> rows, ElementKind kind = multiLine) {
  for (const auto row : rows) {
    const auto keysAt = row.find(' ') + 1, afterAt = row.find(' ', keysAt) + 1;
    TextElement element = elementShowing(row.substr(0, keysAt - 1), kind);
    for (const auto& [code, text, flags] : strokes(row.substr(keysAt, afterAt - 1 - keysAt))) {
      applyKey({EventMask::keyDown, code, text, flags, 0, std::nullopt}, element);
    }
    EXPECT_EQ(shownBy(element), row.substr(afterAt)) << row;
  }
}

TEST(KeyEditing, InsertsText) {
  expectEdits({"h|lo e he|lo", "h^XY|lo e he|lo", "a|b 😀 a😀|b", "| ⌥å å|", "a|b ↩ a\n|b",
               "a|b ⌤ a\n|b", "| \r \n|", "| \r\n \n|", "a| ⇥ a\t|", "a| \uF900 a\uF900|"});
}

TEST(KeyEditing, IgnoresWhatIsNoText) {
  expectEdits({"^a| ⌃b ^a|", "^a| ⌘v ^a|", "a| ⌘↩ a|", "^a| \x01 ^a|", "^a| \x7f ^a|",
               "^a| \uF700 ^a|", "^a| \uF8FF ^a|", "^a| ○∅ ^a|", "^a| ⎋ ^a|"});
}

TEST(KeyEditing, DeletesWholeCharacters) {
  expectEdits({"abc| ⌫ ab|", "a^bc|d ⌫ a|d", "|a ⌫ |a", "a\n|b ⌫ a|b", "a😀|b ⌫ a|b",
               "caf\u0065\u0301| ⌫ caf|", "x👨‍👩‍👧| ⌫ x|", "🇩🇪🇫🇷| ⌫ 🇩🇪|",
               "a|bc ⌦ a|c", "a^b|c ⌦ a|c", "a| ⌦ a|", "a|e\u0301😀 ⌦ a|😀"});
}

TEST(KeyEditing, MovesByCharacters) {
  expectEdits({"ae\u0301| ← a|e\u0301", "|👍🏽a → 👍🏽|a", "|a ← |a", "a^bc|d ← a|bcd",
               "a^bc|d → abc|d", "abc| ⇧←⇧← a^bc|", "ab|c ⇧←⇧→ ab|c"});
}

TEST(KeyEditing, MovesByLines) {
  expectEdits({"x\nab|c ⇧⇱ x\n^ab|c", "x\nab|c ⇱ x\n|abc", "a|bc\nx ⇲ abc|\nx",
               "abc\nde|f ↑ ab|c\ndef", "ab|c\ndef ↓ abc\nde|f", "abc\n\nde|f ↑↑ ab|c\n\ndef",
               "ab|c ↑ |abc", "a|bc ↓ abc|", "😀b\na| ↑ |😀b\na", "a|b\ncd ⇧↓ a^b\nc|d",
               "a\nb\nc| ⇞ |a\nb\nc", "a|\nb\nc ⇟ a\nb\nc|", "abc|\n\n ↓x↑ a|bc\nx\n"});
}

TEST(KeyEditing, DependsOnTheKindOfElement) {
  expectEdits({"^a|b ↩⇥\r ^a|b"}, singleLine);
  expectEdits({"a| b↩ ab|"}, password);
  expectEdits({"^a|b x⌫⌦↩ ^a|b", "ab| ← a|b"}, readOnly);
  expectEdits({"a| b ab|"}, ignoresAccessibilityWrites);
  expectEdits({"a| b ab|"}, withoutAccessibility);
}

}  // namespace
}  // namespace mirvane::simulated
