#pragma once

#include <cstdint>
#include <string>

#include "platform/clock.h"
#include "session/correction_engine.h"

namespace mirvane {

/// What was asked, typed and measured in one session, frozen.
struct SessionSnapshot {
  std::int64_t sessionNumber = 1;  ///< 1 or 2
  std::string prompt = {};
  std::string rawTyped = {};
  std::string finalText = {};
  double elapsed = 0;  ///< seconds
  Clock::DateTime sessionStart = {};
  std::int64_t keystrokeCount = 0;
  std::int64_t wordsCompleted = 0;
  std::int64_t autoCorrectionCount = 0;
  std::int64_t manualCorrectionCount = 0;
  std::int64_t cycleKeyCount = 0;
  std::int64_t nearbyKeyCount = 0;
  std::int64_t repeatKeyCount = 0;
  std::vector<CorrectionEvent> correctionLog = {};
};

/// Freezes an engine whose session has lasted `elapsed` seconds.
[[nodiscard]] SessionSnapshot makeSessionSnapshot(std::int64_t sessionNumber, std::string prompt,
                                                  std::string finalText,
                                                  const CorrectionEngine& engine, double elapsed);

}  // namespace mirvane
