#pragma once

#include <string_view>
#include <vector>

#include "language/guess_search.h"
#include "language/ranked_words.h"
#include "language/typed_word.h"

namespace mirvane {

/// The words nearest to a lower-case word of letters and apostrophes, cheapest first, found by
/// looking through all words: what their letters and lengths have not in common with the typed word
/// rules nearly all of them out. Takes about as long however far the answer is.
std::vector<Guess> scanForNearestWords(const RankedWords& words, const TypedWord& typed,
                                       const GuessLimits& limits);

}  // namespace mirvane
