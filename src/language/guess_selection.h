#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "language/guess_search.h"

namespace mirvane {

/// How much the texts alone speak for a word that was perhaps meant: what the ranking of
/// suggestions gives it without context (suggest/suggestion_priority.h), slips of short words and
/// of two vowels a little too high. Both in lower case.
double likeness(std::string_view typed, std::string_view word);

/// Which of the nearest words to offer for a typed word, cheapest first. Whoever ranks them anew
/// sees only the texts: a common beginning, and slips that show. So a word that would be taken for
/// likelier than a nearer one is offered only when it is about as near as the nearest.
std::vector<std::string> worthOffering(std::string_view typed, std::span<const Guess> nearest);

}  // namespace mirvane
