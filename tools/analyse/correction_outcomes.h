#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "analyse/prompt_words.h"
#include "analyse/typed_session.h"
#include "analyse/typing_course.h"

namespace mirvane {

/// What a logged correction was meant to give, and gave.
struct CorrectionOutcome {
  std::optional<MeantWord> meant = {};
  std::optional<bool> isRight = {};   ///< absent when no word of the prompt was meant
  std::optional<bool> wasRight = {};  ///< the word before it; absent likewise
  /// ms from the correction until the participant went on typing; absent when not known.
  std::optional<double> continued = {};
};

/// A word as the fingers left it and what corrections and cycle steps made of it in the end.
/// Words that the participant erased are none.
struct CorrectedWord {
  std::string typed = {};
  std::string corrected = {};
  std::optional<MeantWord> meant = {};
};

struct CorrectionOutcomes {
  std::vector<CorrectionOutcome> corrections = {};  ///< one per logged correction
  std::vector<CorrectedWord> words = {};
};

[[nodiscard]] CorrectionOutcomes judgeCorrections(const TypedSession& session,
                                                  const TypingCourse& course,
                                                  const std::vector<StudyWord>& prompt);

}  // namespace mirvane
