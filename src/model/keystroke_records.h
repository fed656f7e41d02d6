#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "model/uuid.h"

namespace mirvane {

/// One key press. Immutable: a changed record is a new record.
struct KeyEvent {
  Uuid id;  ///< kept when the record is rewritten with its hold time
  std::uint16_t keyCode = 0;
  std::string inputText;            ///< what the key typed; empty for modifier-only and dead keys
  double timestamp = 0;             ///< seconds since the system started
  std::uint64_t modifierFlags = 0;  ///< unmasked, as of the key-down
  std::optional<double> inputGap;   ///< ms since the key-down before; absent for the first
  std::optional<double> holdTime;   ///< ms until the key-up; absent until it was seen
};

/// Key presses, newest first.
using KeyEventList = std::deque<KeyEvent>;

/// A run of one key pressed again and again, by position in the list that was examined.
struct RepeatedKey {
  Uuid id;  ///< fresh for every detection
  std::string inputText;
  std::int64_t startIndex = 0;
  std::int64_t endIndex = 0;  ///< inclusive
  std::int64_t repeatCount = 0;
};

enum class FeedbackType {
  repeatDetected,
  hesitationDetected,
  nearbyKeyDetected,
  suggestionShown,
  suggestionSelected,
};

/// How the participant types at the moment. The default is the neutral value.
struct TypingState {
  bool isRepeating = false;
  bool isHesitating = false;
  bool isLongPressing = false;
  double typingScore = 0;  ///< mean input gap of the latest presses, ms
  double motorPrior = 0;   ///< how strongly the typing shows motor difficulty, 0 to 1
};

/// What the suggestion display shows. The default is the neutral value.
struct TypingInfo {
  std::string text;
  std::string word;                      ///< the word the suggestions refer to
  std::vector<std::string> suggestions;  ///< best first
  bool showSuggestions = false;
};

/// The verdict on one logged correction; both fields are present or both absent.
struct CorrectionEvaluation {
  std::optional<std::string> expectedWord;  ///< as written in the prompt
  std::optional<bool> isCorrect;
};

}  // namespace mirvane
