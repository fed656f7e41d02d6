#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mirvane {

/// A word of a prompt or of a typed text.
struct StudyWord {
  std::string asWritten = {};
  std::string normalized = {};  ///< never empty
  std::size_t start = 0;        ///< position of its first character
  std::size_t length = 0;       ///< characters
};

/// The words of a text: runs of letters, numbers and apostrophes (U+0027).
[[nodiscard]] std::vector<StudyWord> studyWords(std::string_view text);

/// The same for a text that is already taken apart into characters.
[[nodiscard]] std::vector<StudyWord> studyWords(const std::vector<std::string_view>& characters);

/// Lower case, and nothing but letters, numbers and apostrophes.
[[nodiscard]] std::string normalizedWord(std::string_view text);

}  // namespace mirvane
