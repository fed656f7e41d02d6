#pragma once

#include <QString>
#include <optional>
#include <string_view>

#include "app/study_configuration.h"

namespace mirvane {

/// Takes over what a study.json says; what it does not name stays as it is. All or nothing: for a
/// damaged file `study` is left unchanged and the answer says what is wrong with it, with the line
/// where the text is no JSON. A field that is not known is damage too, or a slip of the pen would
/// run another study than the one that was meant.
[[nodiscard]] std::optional<QString> applyStudyFile(std::string_view json,
                                                    StudyConfiguration& study);

/// Whether it can name a participant: 1 to 64 letters and digits of ASCII and ". _ -" between
/// them, so that it can stand in file names and tables.
[[nodiscard]] bool isParticipantCode(std::string_view code);

}  // namespace mirvane
