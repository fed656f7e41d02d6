#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "language/guess_search.h"

namespace mirvane {

/// Which of the nearest words to offer for a typed word, cheapest first: few when the first is much
/// nearer than the rest. Whoever ranks them anew sees only the texts and prefers a common
/// beginning, so a word that is clearly farther away is offered only if it shares less of the
/// beginning than the first.
std::vector<std::string> worthOffering(std::string_view typed, std::span<const Guess> nearest);

}  // namespace mirvane
