#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "recording/study_recording.h"
#include "session/correction_engine.h"

namespace mirvane {

/// What a session that is not saved yet has come to.
struct UnsavedSession {
  CorrectionEngine::State state;
  std::string typedText;       ///< what its field holds
  double seconds = 0;          ///< where the time of its recording stands
  RecordedStudySession times;  ///< of its recording
};

/// Where a study stands that is not saved yet.
struct UnsavedStudy {
  Clock::DateTime savedAt;
  std::int64_t step = 0;  ///< the raw value of the step
  std::array<UnsavedSession, 2> sessions;
};

/// What a journal holds.
struct Journal {
  StudyHeader header = {};  ///< without the sessions
  UnsavedStudy study = {};
  std::vector<StudyEvent> events = {};
  std::size_t size = 0;    ///< bytes of the file up to the last whole state
  bool isDamaged = false;  ///< what comes behind them is not just the beginning of a line
};

/// Writes a study as lines of a journal (docs/formats/journal.md), each time what has come since.
class JournalLines {
 public:
  /// The lines that a new journal begins with.
  [[nodiscard]] static std::string beginning(const StudyHeader& header);

  /// The events and the state, counted from the last state that was `written`.
  [[nodiscard]] std::string next(const std::vector<StudyEvent>& events,
                                 const UnsavedStudy& study) const;

  /// The file has this state now.
  void written(UnsavedStudy study) { last_ = std::move(study); }

 private:
  std::optional<UnsavedStudy> last_;
};

/// Reads a journal up to its last whole state: what comes after it, a torn line among it, is left
/// out. Absent when there is no such state, or the format is another.
[[nodiscard]] std::optional<Journal> parseJournal(std::string_view contents);

}  // namespace mirvane
