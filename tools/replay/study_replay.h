#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "recording/recording.h"
#include "session/session_snapshot.h"
#include "support/shipped_resources.h"

namespace mirvane {

/// The sessions of a study, played one after the other.
struct ReplayedStudy {
  std::vector<SessionSnapshot> sessions;  ///< in the order of the recordings
  Clock::DateTime end;                    ///< when the last session was frozen
};

/// Plays one or two recordings; the second session begins when the first is frozen.
[[nodiscard]] ReplayedStudy replayStudy(const std::vector<Recording>& recordings,
                                        ShippedResources& shipped, Clock::DateTime start);

/// The results report. A session without a recording is one in which nothing was typed.
[[nodiscard]] std::string reportOf(const ReplayedStudy& study);

/// One JSON object: per session its texts, counters and correction log.
[[nodiscard]] std::string jsonOf(const ReplayedStudy& study);

/// One JSON object a line, one per event: what the engine thinks after it.
[[nodiscard]] std::string traceOf(const Recording& recording, ShippedResources& shipped,
                                  Clock::DateTime start);

}  // namespace mirvane
