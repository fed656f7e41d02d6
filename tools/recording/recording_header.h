#pragma once

#include "recording/json_fields.h"
#include "recording/recording.h"

namespace mirvane {

/// Reads a recording's first line; the events are still missing. Throws a `std::runtime_error` that
/// says what is wrong with it.
[[nodiscard]] Recording parseRecordingHeader(const JsonFields& fields);

/// The name of a lexical class as recordings have it, letter case aside: "noun", "other".
[[nodiscard]] LexicalClass lexicalClassNamed(const std::string& name);

}  // namespace mirvane
