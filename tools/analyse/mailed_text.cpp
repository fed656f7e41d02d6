#include "analyse/mailed_text.h"

#include <algorithm>

#include "text/scalars.h"

namespace mirvane {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

bool isUtf8(std::string_view text) {
  for (std::size_t position = 0; position < text.size();) {
    const auto start = position;
    if (text::nextScalar(text, position) != text::replacementScalar) continue;
    if (text.substr(start, position - start) != replacement) return false;
  }
  return true;
}

/// Only when every line ends so: Return types a carriage return, and the text typed may end in one.
bool endsLinesWithCrLf(std::string_view text) {
  auto at = text.find('\n');
  if (at == std::string_view::npos) return false;
  for (; at != std::string_view::npos; at = text.find('\n', at + 1)) {
    if (at == 0 || text[at - 1] != '\r') return false;
  }
  return true;
}

std::string withLineFeeds(std::string_view text) {
  std::string result(text);
  if (!endsLinesWithCrLf(text)) return result;
  for (auto at = result.find("\r\n"); at != std::string::npos; at = result.find("\r\n", at)) {
    result.erase(at, 1);
  }
  return result;
}

bool isQuotation(std::string_view text) {
  return text.find_first_not_of("> |\t") == std::string_view::npos;
}

std::string_view withoutSpacesAtEnd(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// Takes the quotation signs away from every line that has them.
std::string withoutQuotation(std::string_view text, std::string_view signs) {
  if (signs.empty()) return std::string(text);
  const auto bare = withoutSpacesAtEnd(signs);  // of an empty line
  std::string result;
  while (!text.empty()) {
    auto line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
    text.remove_prefix(line.size());
    if (line.starts_with(signs)) {
      line.remove_prefix(signs.size());
    } else if (line.starts_with(bare)) {
      line.remove_prefix(bare.size());
    }
    result += line;
  }
  return result;
}

}  // namespace

std::optional<MailedText> unmailed(std::string_view contents, std::string_view title) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  if (contents.starts_with(byteOrderMark)) contents.remove_prefix(byteOrderMark.size());
  if (!isUtf8(contents)) return std::nullopt;
  const auto text = withLineFeeds(contents);
  const std::string_view view = text;
  for (auto at = view.find(title); at != std::string_view::npos; at = view.find(title, at + 1)) {
    const auto lineFeed = view.substr(0, at).rfind('\n');
    const auto start = lineFeed == std::string_view::npos ? 0 : lineFeed + 1;
    const auto signs = view.substr(start, at - start);
    if (!isQuotation(signs)) continue;
    const auto linesBefore =
        std::count(view.begin(), view.begin() + static_cast<std::ptrdiff_t>(start), '\n');
    return MailedText{withoutQuotation(view.substr(start), signs),
                      static_cast<std::size_t>(linesBefore) + 1};
  }
  return std::nullopt;
}

}  // namespace mirvane
