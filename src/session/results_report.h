#pragma once

#include <string>

#include "platform/clock.h"
#include "session/session_snapshot.h"

namespace mirvane {

/// The study's output: plain text, lines joined by a line feed, none after the last. `now` is the
/// time of saving. Times are shown in the user's time zone, decimals always with a point.
[[nodiscard]] std::string resultsReportText(const SessionSnapshot& session1,
                                            const SessionSnapshot& session2, Clock::DateTime now);

}  // namespace mirvane
