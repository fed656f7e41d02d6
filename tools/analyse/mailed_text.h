#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mirvane {

struct MailedText {
  std::string text;
  std::size_t firstLine = 1;  ///< the line of the file that it begins in
};

/// Takes away what mail programs and editors add to a text file: a byte order mark, CR LF in place
/// of line feeds, lines before `title`, and quotation signs ("> ") before every line. Absent when
/// no line is the title or the file is not UTF-8.
[[nodiscard]] std::optional<MailedText> unmailed(std::string_view contents, std::string_view title);

}  // namespace mirvane
