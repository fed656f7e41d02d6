#pragma once

#include <array>
#include <stdexcept>
#include <string>
#include <string_view>

#include "analyse/typed_session.h"

namespace mirvane {

/// Says which file and line is damaged, and how.
class ReportError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What a results report says of both sessions. The keys have no times.
struct StudyReport {
  std::array<TypedSession, 2> sessions = {};
};

/// Reads a results report from a text: of any locale, with whatever was typed inside its texts and
/// its log (line feeds, quotation marks, arrows), with the line ends, the byte order mark, the
/// quotation signs and the text around it that mail programs add. Where a text typed by the
/// participant looks like a label of the report, the counts in the report decide. `name` stands for
/// the file in messages. Throws a `ReportError` for the first line that is not as in a report.
[[nodiscard]] StudyReport parseReport(std::string_view contents, std::string_view name);

}  // namespace mirvane
