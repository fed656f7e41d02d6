#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace mirvane {

/// What tells whether anything has been typed in the two sessions since some moment.
struct StudyTyping {
  struct Session {
    std::int64_t keystrokeCount = 0;
    std::string text;  ///< what the session's field holds

    bool operator==(const Session&) const = default;
  };

  std::array<Session, 2> sessions;

  bool operator==(const StudyTyping&) const = default;
};

/// Whether something has been typed that the last saved report does not hold. `saved` is what had
/// been typed when it was written; nothing where none has been.
[[nodiscard]] inline bool isUnsaved(const StudyTyping& now, const StudyTyping& saved) {
  return now != StudyTyping{} && now != saved;
}

}  // namespace mirvane
