#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "recording/json_fields.h"

namespace mirvane {

/// What the engine logged, as recordings of version 2 have it.
struct RecordedCorrection {
  std::string kind;
  std::string original;
  std::string corrected;
  std::optional<std::int64_t> wordIndex;
  double confidence = 0;
};

/// One event of a recorded typing session. Which fields count depends on the kind.
struct RecordedEvent {
  enum class Kind { down, up, flags, pointer, activate, chip, reset, done, correction };

  Kind kind = Kind::down;
  double t = 0;  ///< seconds since the session began
  std::uint16_t keyCode = 0;
  std::optional<std::string> text = {};  ///< what the key typed; of `done`, what the field held
  std::uint64_t flags = 0;
  std::string app = {};   ///< the application that became active
  std::size_t index = 0;  ///< the chip that was picked
  RecordedCorrection correction = {};
};

/// The name of a kind as the file has it.
[[nodiscard]] std::string_view nameOf(RecordedEvent::Kind kind);

/// Reads an event of version 1. Throws a `std::runtime_error` that says what is wrong with it.
[[nodiscard]] RecordedEvent parseSessionEvent(const JsonFields& fields);

/// An event of version 2 and its session, 1 or 2.
struct StudyEvent {
  std::int64_t session = 1;
  RecordedEvent event;
};

/// Reads an event of version 2, likewise.
[[nodiscard]] StudyEvent parseStudyEvent(const JsonFields& fields);

/// The event as a line of a recording, without the line feed.
[[nodiscard]] std::string formatSessionEvent(const RecordedEvent& event);
[[nodiscard]] std::string formatStudyEvent(const StudyEvent& event);

}  // namespace mirvane
