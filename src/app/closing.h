#pragma once

#include "views/app_step.h"

namespace mirvane {

/// What the window knows when it is asked to close.
struct ClosingState {
  bool isTypingUnsaved = false;
  bool isEndDecided = false;  ///< by the participant's answer, or the system, which waits for none
};

enum class Closing { atOnce, afterQuestion };

[[nodiscard]] constexpr Closing closingOf(const ClosingState& state) {
  return state.isTypingUnsaved && !state.isEndDecided ? Closing::afterQuestion : Closing::atOnce;
}

/// Whether the report can be saved where the participant is: there is something to be told, and
/// nothing more will be typed there.
[[nodiscard]] constexpr bool offersSaving(AppStep step, bool isGateShown, bool hasTyping) {
  return step == AppStep::results || (isGateShown && hasTyping);
}

}  // namespace mirvane
