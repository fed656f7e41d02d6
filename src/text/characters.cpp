#include "text/characters.h"

#include <unicode/brkiter.h>
#include <unicode/utext.h>

#include <memory>

#include "text/canonical.h"
#include "text/icu_status.h"
#include "text/scalars.h"

namespace mirvane::text {
namespace {

std::unique_ptr<icu::BreakIterator> makeCharacterIterator() {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::BreakIterator> iterator(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  expectSuccess(status, "character boundaries");
  return iterator;
}

/// The iterator is costly to make and cheap to point at another text, so each thread keeps one.
icu::BreakIterator& characterIterator() {
  thread_local const auto iterator = makeCharacterIterator();
  return *iterator;
}

class CharacterBoundaries {
 public:
  explicit CharacterBoundaries(std::string_view text) : iterator_(characterIterator()) {
    UErrorCode status = U_ZERO_ERROR;
    utext_openUTF8(&utext_, text.data(), static_cast<std::int64_t>(text.size()), &status);
    iterator_.setText(&utext_, status);
    expectSuccess(status, "a text's characters");
  }
  explicit CharacterBoundaries(std::u16string_view text) : iterator_(characterIterator()) {
    UErrorCode status = U_ZERO_ERROR;
    utext_openUChars(&utext_, text.data(), static_cast<std::int64_t>(text.size()), &status);
    iterator_.setText(&utext_, status);
    expectSuccess(status, "a text's characters");
  }
  CharacterBoundaries(const CharacterBoundaries&) = delete;
  CharacterBoundaries& operator=(const CharacterBoundaries&) = delete;
  ~CharacterBoundaries() { utext_close(&utext_); }

  icu::BreakIterator* operator->() { return &iterator_; }

 private:
  icu::BreakIterator& iterator_;
  UText utext_ = UTEXT_INITIALIZER;
};

/// Calls `visit` with every character; ASCII needs no iterator (CR LF is one character).
template <typename Visit>
void forEachCharacter(std::string_view text, Visit visit) {
  if (isAscii(text)) {
    for (std::size_t i = 0; i < text.size();) {
      const std::size_t length = text.substr(i, 2) == "\r\n" ? 2 : 1;
      visit(text.substr(i, length));
      i += length;
    }
    return;
  }
  CharacterBoundaries boundaries(text);
  auto start = static_cast<std::size_t>(boundaries->first());
  for (auto next = boundaries->next(); next != icu::BreakIterator::DONE;
       next = boundaries->next()) {
    const auto end = static_cast<std::size_t>(next);
    visit(text.substr(start, end - start));
    start = end;
  }
}

bool isPlainAscii(char16_t unit) {
  return unit >= 0x20 && unit < 0x7F;
}

}  // namespace

std::vector<std::string_view> characters(std::string_view text) {
  std::vector<std::string_view> result;
  result.reserve(text.size());
  forEachCharacter(text, [&](std::string_view character) { result.push_back(character); });
  return result;
}

std::size_t characterCount(std::string_view text) {
  std::size_t count = 0;
  forEachCharacter(text, [&](std::string_view) { ++count; });
  return count;
}

bool isSingleCharacter(std::string_view text) {
  if (text.size() == 1) return true;
  if (text.empty()) return false;
  if (isAscii(text)) return text == "\r\n";
  CharacterBoundaries boundaries(text);
  boundaries->first();
  return static_cast<std::size_t>(boundaries->next()) == text.size();
}

std::string_view withoutLastCharacter(std::string_view text) {
  if (text.empty()) return text;
  if (isAscii(text)) return text.substr(0, text.size() - (text.ends_with("\r\n") ? 2 : 1));
  CharacterBoundaries boundaries(text);
  boundaries->last();
  return text.substr(0, static_cast<std::size_t>(boundaries->previous()));
}

std::size_t lastCharacterStart(std::u16string_view text) {
  const std::size_t size = text.size();
  const bool plain = isPlainAscii(text[size - 1]) && (size == 1 || isPlainAscii(text[size - 2]));
  if (plain) return size - 1;
  CharacterBoundaries boundaries(text);
  boundaries->last();
  return static_cast<std::size_t>(boundaries->previous());
}

std::size_t firstCharacterEnd(std::u16string_view text) {
  const bool plain = isPlainAscii(text[0]) && (text.size() == 1 || isPlainAscii(text[1]));
  if (plain) return 1;
  CharacterBoundaries boundaries(text);
  boundaries->first();
  return static_cast<std::size_t>(boundaries->next());
}

bool sameCharacter(std::string_view a, std::string_view b) {
  return canonicallyEqual(a, b);
}

}  // namespace mirvane::text
