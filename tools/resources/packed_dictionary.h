#pragma once

#include <istream>
#include <string>

namespace mirvane {

/// The bytes of a dictionary file made from lines of "word frequency": a frequency of 1 to 255 as
/// in WordTrie, or 0 for a word that is correct but never offered. Throws std::runtime_error for a
/// line of another form.
std::string packedDictionary(std::istream& lines);

}  // namespace mirvane
