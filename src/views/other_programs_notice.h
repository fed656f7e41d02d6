#pragma once

#include <QString>

namespace mirvane {

/// What a session does with what is typed in other programs while its screen is up.
enum class OtherPrograms {
  watched,   ///< read, corrected and written into the report like the study's own text
  leftAlone  ///< out of reach on this desktop, or left out by the study
};

/// The same in the words of the participant, and how to avoid it.
[[nodiscard]] QString otherProgramsNotice(OtherPrograms otherPrograms);

/// The same at more length, for the question whether the participant agrees.
[[nodiscard]] QString otherProgramsConsent(OtherPrograms otherPrograms);

}  // namespace mirvane
