#include "correct/suggestion_cycler.h"

#include "text/utf16.h"

namespace mirvane {
namespace {

/// The position after the current one in the ring; absent for the word as typed.
std::optional<std::size_t> nextIndex(const SuggestionCycler::Record& record) {
  const std::size_t next = record.currentIndex ? *record.currentIndex + 1 : 0;
  if (next >= record.candidates.size()) return std::nullopt;
  return next;
}

}  // namespace

bool SuggestionCycler::cycle() {
  if (!settings_.isCorrectionActive() || !record) return false;
  const auto index = nextIndex(*record);
  const std::string nextText = index ? record->candidates[*index] : record->originalWord;
  if (onCycle) onCycle(record->currentText, nextText);
  replacement_.replaceCycledText(record->currentText, record->boundaryCharacter, nextText,
                                 record->axTarget);
  record->currentIndex = index;
  record->currentText = nextText;
  if (record->axTarget) {
    record->axTarget->range.length = text::utf16Length(nextText);
    record->axTarget->caretAfter.reset();
  }
  return true;
}

}  // namespace mirvane
