#include "analyse/text_cursor.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace mirvane {
namespace {

/// One line of it, for a message.
std::string shown(std::string_view literal) {
  while (literal.starts_with('\n')) literal.remove_prefix(1);
  const auto line = literal.substr(0, literal.find('\n'));
  return line.empty() ? "an empty line" : '"' + std::string(line) + '"';
}

std::size_t lineFeedsBeforeText(std::string_view literal) {
  return std::min(literal.find_first_not_of('\n'), literal.size());
}

template <typename Number>
Number numberAt(TextCursor& cursor, std::string_view expected) {
  const auto text = cursor.rest();
  Number number{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc()) cursor.fail("expected " + std::string(expected));
  cursor.take(static_cast<std::size_t>(result.ptr - text.data()));
  return number;
}

}  // namespace

void TextCursor::expect(std::string_view literal) {
  if (skip(literal)) return;
  const auto lineFeeds = lineFeedsBeforeText(literal);
  if (text_.starts_with(literal.substr(0, lineFeeds))) take(lineFeeds);
  fail("expected " + shown(literal));
}

bool TextCursor::skip(std::string_view literal) {
  if (!text_.starts_with(literal)) return false;
  take(literal.size());
  return true;
}

std::string_view TextCursor::until(std::string_view literal) {
  const auto at = text_.find(literal);
  if (at == std::string_view::npos) fail(shown(literal) + " does not follow");
  const auto before = take(at);
  take(literal.size());
  return before;
}

std::string_view TextCursor::take(std::size_t length) {
  const auto taken = text_.substr(0, length);
  line_ += static_cast<std::size_t>(std::count(taken.begin(), taken.end(), '\n'));
  text_.remove_prefix(taken.size());
  return taken;
}

std::int64_t TextCursor::wholeNumber() {
  return numberAt<std::int64_t>(*this, "a whole number");
}

double TextCursor::decimal() {
  return numberAt<double>(*this, "a number");
}

void TextCursor::fail(std::string_view what) const {
  throw Mismatch(std::to_string(line_) + ": " + std::string(what));
}

}  // namespace mirvane
