#pragma once

#include <string_view>
#include <vector>

#include "model/correction_event.h"
#include "model/keystroke_records.h"

namespace mirvane {

/// Decides for each logged correction, in log order, which word of the prompt it was meant to
/// produce and whether it did. The word index decides where there is one within the prompt; else
/// the word is looked for where it was first typed.
[[nodiscard]] std::vector<CorrectionEvaluation> evaluateCorrections(
    const std::vector<CorrectionEvent>& correctionLog, std::string_view prompt,
    std::string_view rawTyped);

}  // namespace mirvane
