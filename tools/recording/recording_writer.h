#pragma once

#include <string>

#include "recording/recording.h"

namespace mirvane {

/// The recording as JSON Lines: session, prompt and events. What a recording may bring along beside
/// them (parameters, English, settings, field, end) is not written.
[[nodiscard]] std::string formatRecording(const Recording& recording);

}  // namespace mirvane
