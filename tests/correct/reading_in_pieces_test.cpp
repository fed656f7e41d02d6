#include <gtest/gtest.h>

#include <random>

#include "correct/focused_text.h"
#include "platform/simulated/scripted_lexical_tagger.h"
#include "suggest/context_signals.h"
#include "text/characters.h"
#include "text/scalars.h"
#include "text/utf16.h"
#include "text/word_boundaries.h"

namespace mirvane {
namespace {

/// An element of any text, however ill-formed, that answers a number of reads and then no more.
class PlainElement : public AccessibilityElement {
 public:
  explicit PlainElement(std::u16string text)
      : length(std::int64_t(text.size())), text_(std::move(text)) {}

  [[nodiscard]] std::optional<std::int64_t> textLength() const override { return length; }
  [[nodiscard]] std::optional<std::u16string> text(Utf16Range range) const override {
    if (readsLeft-- <= 0) return std::nullopt;
    return text_.substr(static_cast<std::size_t>(range.location),
                        static_cast<std::size_t>(range.length));
  }
  [[nodiscard]] std::optional<Utf16Range> selectedTextRange() const override { return selection; }
  void setSelectedTextRange(Utf16Range) override {}
  void setSelectedText(std::string_view) override {}

  [[nodiscard]] std::u16string before(std::int64_t end) const {
    return text_.substr(0, static_cast<std::size_t>(end));
  }

  Utf16Range selection;
  std::int64_t length;
  mutable int readsLeft = 1'000'000;

 private:
  std::u16string text_;
};

class OneElement : public Accessibility {
 public:
  explicit OneElement(std::u16string text)
      : element(std::make_shared<PlainElement>(std::move(text))) {}

  [[nodiscard]] bool isProcessTrusted() const override { return true; }
  void promptForTrust(TrustPrompt& /*prompt*/) override {}
  [[nodiscard]] std::shared_ptr<AccessibilityElement> focusedElement() const override {
    return element;
  }

  std::shared_ptr<PlainElement> element;
};

using Range = std::pair<std::int64_t, std::int64_t>;
constexpr Range none{-1, 0};

Range rangeOf(const std::optional<WordAtCaret>& found) {
  return found ? Range{found->range.location, found->range.length} : none;
}

std::int64_t behindLast(const std::u16string& text, bool (*matches)(char32_t)) {
  auto position = std::int64_t(text.size());
  while (position > 0 && !matches(text[static_cast<std::size_t>(position - 1)])) --position;
  return position;
}

bool isBoundary(char32_t scalar) {
  return text::wordBoundaryCharacters.contains(scalar);
}

/// The look-ups over the whole text before the caret.
Range plainCurrentWord(const std::u16string& before) {
  const auto start = behindLast(before, text::isWhitespace);
  const auto length = std::int64_t(before.size()) - start;
  return length > 0 ? Range{start, length} : none;
}

Range plainCompletedWord(const std::u16string& before) {
  const std::string utf8 = text::toUtf8(before);
  const auto characters = text::characters(utf8);
  auto end = std::int64_t(before.size());
  for (auto i = characters.size(); i > 0; --i) {
    if (!isBoundary(text::firstScalar(characters[i - 1]))) break;
    end -= text::utf16Length(characters[i - 1]);
  }
  if (end == std::int64_t(before.size()) || end == 0) return none;
  const auto start = behindLast(before.substr(0, static_cast<std::size_t>(end)), isBoundary);
  return end > start ? Range{start, end - start} : none;
}

/// Words, marks, emoji, line breaks and runs longer than a piece, in any order.
std::u16string randomText(std::minstd_rand& random) {
  const std::u16string parts[] = {u"a",
                                  u"word",
                                  u"it's",
                                  u" ",
                                  u". ",
                                  u"\r\n",
                                  u"\r",
                                  u"\n",
                                  u"'",
                                  u"\u0301",
                                  u" \u0301",
                                  u"😀",
                                  u"👨‍👩‍👧",
                                  u"🇦🇧",
                                  u"é",
                                  u"漢",
                                  u"\u0600",
                                  u"\u00a0",
                                  u"\u200d",
                                  u"\xD83D",
                                  u"-",
                                  std::u16string(140, u' '),
                                  std::u16string(60, u'x'),
                                  std::u16string(30, u'\u0301'),
                                  std::u16string(25, u'\n'),
                                  u"b c d e f "};
  std::u16string text;
  while (text.size() < 600) text += parts[random() % std::size(parts)];
  return text;
}

std::string described(const ContextSignals& signals) {
  std::string text = signals.prevWord.value_or("-") + '|' + signals.nextWord.value_or("-");
  for (const auto& word : signals.surroundingWords) text += '|' + word;
  return text;
}

class ReadingInPieces : public testing::TestWithParam<unsigned> {};

TEST_P(ReadingInPieces, FindsWhatReadingTheWholeTextFinds) {
  std::minstd_rand random(GetParam());
  const OneElement desktop(randomText(random));
  const simulated::ScriptedLexicalTagger tagger;
  const auto& element = *desktop.element;
  const std::string whole = text::toUtf8(element.before(element.length));
  for (std::int64_t caret = 0; caret <= element.length; ++caret) {
    desktop.element->selection = {caret, 0};
    const auto before = element.before(caret);
    ASSERT_EQ(rangeOf(currentWordBeforeCaret(desktop)), plainCurrentWord(before)) << caret;
    ASSERT_EQ(rangeOf(lastCompletedWordBeforeCaret(desktop)), plainCompletedWord(before)) << caret;
    if (caret % 3 != 0) continue;
    const auto around = readTextAroundCaret(*readFocusedTextState(desktop), 7);
    ASSERT_EQ(described(extractContextSignals(around->text, around->caret, 6, tagger)),
              described(extractContextSignals(whole, caret, 6, tagger)))
        << caret;
  }
}

INSTANTIATE_TEST_SUITE_P(RandomTexts, ReadingInPieces, testing::Range(1U, 13U));

TEST(ReadingInPiecesThatFails, GivesNoWordAndNoContext) {
  for (const char16_t filler : {u'x', u' '}) {
    const OneElement desktop(u"helo " + std::u16string(1000, filler) + u" ");
    auto& element = *desktop.element;
    element.selection = {element.length - (filler == u'x' ? 1 : 0), 0};
    for (int reads = 0; reads < 3; ++reads) {
      element.readsLeft = reads;
      EXPECT_EQ(rangeOf(currentWordBeforeCaret(desktop)), none);
      element.readsLeft = reads;
      EXPECT_FALSE(readTextAroundCaret(*readFocusedTextState(desktop), 7));
      element.selection = {element.length, 0};
      element.readsLeft = reads;
      EXPECT_EQ(rangeOf(lastCompletedWordBeforeCaret(desktop)), none);
    }
  }
}

TEST(ReadingInPiecesThatFails, GivesNoWordWhenTheTextHasShrunkMeanwhile) {
  const OneElement desktop(u"helo ");
  desktop.element->length = 6;
  desktop.element->selection = {6, 0};
  EXPECT_EQ(rangeOf(currentWordBeforeCaret(desktop)), none);
  EXPECT_EQ(rangeOf(lastCompletedWordBeforeCaret(desktop)), none);
  EXPECT_FALSE(readTextAroundCaret(*readFocusedTextState(desktop), 7));
}

}  // namespace
}  // namespace mirvane
