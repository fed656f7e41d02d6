#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mirvane {

/// The word itself, followed by the words it may be once repeated letters are taken back: a run of
/// two commonly doubled letters stays, every other run of two or more becomes one or two. Empty
/// for an empty word. With more than 8 such runs only the variant with all of them single and the
/// one with all of them double are given, so that there are never more than 257.
[[nodiscard]] std::vector<std::string> repeatCollapseVariants(std::string_view word);

/// True when a character stands three or more times in a row.
[[nodiscard]] bool hasTripleRepeat(std::string_view word);

}  // namespace mirvane
