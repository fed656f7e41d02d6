#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "recording/json_fields.h"

namespace mirvane {

/// Says which file and line is damaged, and how.
class RecordingError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// One line of a JSON Lines file. Throws a `std::runtime_error` when it is not valid JSON.
[[nodiscard]] Json parseJsonLine(std::string_view line);

/// Calls `visit` with the object of every line that is not blank. What it throws for a damaged
/// line, as a `std::runtime_error`, comes out as a `RecordingError` with file and line; `name`
/// stands for the file.
void forEachJsonLine(std::string_view contents, std::string_view name,
                     const std::function<void(const JsonFields&)>& visit);

/// The whole of a file. Throws a `RecordingError` when it cannot be read.
[[nodiscard]] std::string contentsOfFile(const std::string& path);

}  // namespace mirvane
