#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "language/word_trie.h"

namespace mirvane {

/// The most frequent words that begin with a lower-case prefix and are longer, most frequent first;
/// words of equal frequency in the order of their letters.
std::vector<std::string> mostFrequentCompletions(const WordTrie& trie, std::string_view prefix,
                                                 std::size_t count);

}  // namespace mirvane
