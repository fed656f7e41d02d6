#pragma once

#include <istream>
#include <string>

namespace mirvane {

/// The bytes of a tag file made from lines of "word number", the number being a LexicalClass.
/// Throws std::runtime_error for a line of another form.
std::string packedTags(std::istream& lines);

}  // namespace mirvane
