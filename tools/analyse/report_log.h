#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "analyse/text_cursor.h"
#include "analyse/typed_session.h"

namespace mirvane {

/// Reads the `count` entries of a report's correction log, and the empty line after them. `next` is
/// what must follow then: words inside an entry may hold line feeds and look like anything. `raw`
/// is what was typed in the session; a word before an arrow is one of it. Throws a
/// `TextCursor::Mismatch` at the first entry that is damaged.
[[nodiscard]] std::vector<LoggedCorrection> parseReportLog(TextCursor& text, std::size_t count,
                                                           std::string_view raw,
                                                           std::string_view next);

}  // namespace mirvane
