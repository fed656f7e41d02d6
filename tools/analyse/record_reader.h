#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analyse/typed_session.h"
#include "support/shipped_resources.h"

namespace mirvane {

/// What a recording of either version tells.
struct StudyRecord {
  std::int64_t format = 2;
  std::optional<std::string> participant = {};
  std::optional<std::string> program = {};
  std::optional<std::string> data = {};
  std::optional<std::string> layout = {};
  std::optional<std::string> timeZone = {};
  std::vector<TypedSession> sessions = {};
};

/// Reads a recording of version 1 or 2. A session of version 1 is typed again to learn what the
/// engine corrected. `name` stands for the file in messages. Throws a `RecordingError` that names
/// the first line it does not understand.
[[nodiscard]] StudyRecord parseRecord(std::string_view contents, std::string_view name,
                                      ShippedResources& shipped);

}  // namespace mirvane
