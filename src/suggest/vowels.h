#pragma once

#include <string_view>

namespace mirvane {

/// In the order in which they are tried.
inline constexpr std::string_view vowels = "aeiou";

/// Whether a lower-case character is a vowel; one with a combining mark is not.
[[nodiscard]] inline bool isVowel(std::string_view character) {
  return character.size() == 1 && vowels.find(character) != std::string_view::npos;
}

}  // namespace mirvane
