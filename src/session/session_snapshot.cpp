#include "session/session_snapshot.h"

#include <utility>

namespace mirvane {

SessionSnapshot makeSessionSnapshot(std::int64_t sessionNumber, std::string prompt,
                                    std::string finalText, const CorrectionEngine& engine,
                                    double elapsed) {
  const auto& measured = engine.measurements();
  return {.sessionNumber = sessionNumber,
          .prompt = std::move(prompt),
          .rawTyped = measured.rawInputLog,
          .finalText = std::move(finalText),
          .elapsed = elapsed,
          .sessionStart = engine.sessionStart(),
          .keystrokeCount = measured.keystrokeCount,
          .wordsCompleted = measured.wordsCompleted,
          .autoCorrectionCount = measured.autoCorrectionCount,
          .manualCorrectionCount = measured.manualCorrectionCount,
          .cycleKeyCount = measured.cycleKeyCount,
          .nearbyKeyCount = measured.nearbyKeyCount,
          .repeatKeyCount = measured.repeatKeyCount,
          .correctionLog = measured.correctionLog};
}

}  // namespace mirvane
