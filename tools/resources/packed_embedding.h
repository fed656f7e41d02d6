#pragma once

#include <istream>
#include <string>

namespace mirvane {

/// The bytes of an embedding file made from lines of "word number number ...": as many numbers from
/// -127 to 127 on every line. Throws std::runtime_error for anything else.
std::string packedEmbedding(std::istream& lines);

}  // namespace mirvane
