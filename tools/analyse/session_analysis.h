#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "analyse/correction_outcomes.h"
#include "analyse/error_rates.h"
#include "analyse/key_pairs.h"
#include "analyse/rhythm.h"
#include "analyse/typed_session.h"
#include "suggest/nearby_keys.h"

namespace mirvane {

/// How the corrections of one sort came out.
struct CorrectionCounts {
  std::int64_t right = 0;
  std::int64_t wrong = 0;
  std::int64_t unknown = 0;  ///< no word of the prompt was meant

  [[nodiscard]] std::int64_t all() const { return right + wrong + unknown; }
};

/// Everything measured of one session. What is absent is not known or has no meaning there; the
/// formulas are in docs/formats/tables.md.
struct SessionAnalysis {
  std::string typed = {};  ///< what the fingers left
  std::size_t promptCharacters = 0;
  std::size_t typedCharacters = 0;
  std::size_t finalCharacters = 0;
  std::size_t backspaces = 0;
  std::size_t erasedCharacters = 0;
  std::size_t replacedCharacters = 0;
  std::int64_t fixes = 0;
  Rhythm rhythm = {};
  std::optional<double> wpm = {};
  std::optional<double> adjustedWpm = {};
  ErrorRates typedErrors = {};
  ErrorRates finalErrors = {};
  std::optional<double> kspc = {};
  std::size_t promptWords = 0;
  std::size_t typedWordsRight = 0;
  std::size_t finalWordsRight = 0;
  std::int64_t wordsFixed = 0;
  std::int64_t wordsBroken = 0;
  CorrectionCounts automatic = {};
  CorrectionCounts chips = {};
  CorrectionCounts cycleSteps = {};
  std::int64_t autoRepeat = 0;
  std::int64_t autoNearby = 0;
  std::int64_t autoOther = 0;
  std::optional<double> precision = {};
  std::optional<double> wrongCorrectionCost = {};  ///< ms
  bool isFinalReproduced = false;
  std::vector<CorrectionOutcome> corrections = {};  ///< one per logged correction
  std::vector<KeyPair> keyPairs = {};

  /// Something was typed, or stood in the field at the end.
  [[nodiscard]] bool isTyped() const { return typedCharacters + backspaces + finalCharacters > 0; }
  /// ms that a correction held up the typing; absent when not known.
  [[nodiscard]] std::optional<double> costOf(const CorrectionOutcome& correction) const;
};

/// Throws a `std::runtime_error` for texts that are too long to compare.
[[nodiscard]] SessionAnalysis analyseSession(const TypedSession& session,
                                             const TypingConfig& config,
                                             const NearbyKeys& nearbyKeys);

}  // namespace mirvane
