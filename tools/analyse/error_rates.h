#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "analyse/alignment.h"

namespace mirvane {

/// The keystroke classes of a text against the prompt and the rates made of them (Soukoreff &
/// MacKenzie 2001 and 2003). Rates are shares from 0 to 1, absent when both texts are empty.
struct ErrorRates {
  std::size_t distance = 0;  ///< MSD, and INF: incorrect and not fixed
  std::size_t correct = 0;   ///< C: the longer text's length less the distance
  std::optional<double> msd = {};
  std::optional<double> corrected = {};
  std::optional<double> uncorrected = {};
  std::optional<double> total = {};
};

/// `incorrectFixed` is IF: characters that were typed and taken away again.
[[nodiscard]] ErrorRates errorRates(const Symbols& presented, const Symbols& transcribed,
                                    std::size_t incorrectFixed);

/// (|T| - 1) / S * 60 / 5 (MacKenzie 2002a in docs/formats/tables.md). Absent below two characters
/// or without time.
[[nodiscard]] std::optional<double> wordsPerMinute(std::size_t transcribedCharacters,
                                                   double seconds);

}  // namespace mirvane
