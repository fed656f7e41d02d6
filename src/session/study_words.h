#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mirvane {

/// A word of a prompt or of a typed text.
struct StudyWord {
  std::string asWritten;
  std::string normalized;  ///< never empty
};

/// The words of a text: runs of letters, numbers and apostrophes (U+0027).
[[nodiscard]] std::vector<StudyWord> studyWords(std::string_view text);

/// Lower case, and nothing but letters, numbers and apostrophes.
[[nodiscard]] std::string normalizedWord(std::string_view text);

}  // namespace mirvane
