#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "correct/accessibility_text_replacement.h"
#include "model/user_settings.h"

namespace mirvane {

/// Keeps the alternatives of one word and puts the next one in its place at every step. The ring
/// is the candidates followed by the word as typed.
class SuggestionCycler {
 public:
  static constexpr std::size_t maximumCandidates = 3;

  struct Record {
    std::string originalWord;
    std::vector<std::string> candidates;      ///< at most `maximumCandidates`
    std::optional<std::size_t> currentIndex;  ///< absent while `originalWord` is shown
    std::string currentText;                  ///< what stands in the document now
    std::string boundaryCharacter;            ///< empty after a manual selection
    /// Where `currentText` stands; absent when it was typed by keys or no element was known.
    std::optional<AXReplacementTarget> axTarget;
  };

  SuggestionCycler(const UserSettings& settings, AccessibilityTextReplacement& replacement)
      : settings_(settings), replacement_(replacement) {}

  /// Absent when nothing can be cycled. Armed and discarded by whoever corrects words.
  std::optional<Record> record;

  /// Called on every step, before anything is replaced, with the text shown before and after.
  std::function<void(const std::string&, const std::string&)> onCycle;

  /// Makes one step. False when corrections are off or there is no record; a replacement that
  /// fails does not hold the step back.
  bool cycle();

 private:
  const UserSettings& settings_;
  AccessibilityTextReplacement& replacement_;
};

}  // namespace mirvane
