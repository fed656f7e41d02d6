#pragma once

#include <string_view>

namespace mirvane {

/// True for a lower-case word with more repeated letters than a slip away from English: two runs
/// that hardly an English word has even one of (a letter three times in a row, or twice one that is
/// seldom doubled), or four runs of any sort. Such a word is what a trembling hand makes of
/// another; looking for its neighbours is costly and finds nothing before some of the repeats are
/// taken back.
[[nodiscard]] bool hasTooManyRepeats(std::string_view lowerWord);

}  // namespace mirvane
