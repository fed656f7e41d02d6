#include "session/correction_evaluation.h"

#include <algorithm>
#include <optional>

#include "session/study_words.h"
#include "text/canonical.h"

namespace mirvane {
namespace {

/// Walks through prompt and typed words; the position only moves forward from entry to entry.
class Evaluator {
 public:
  Evaluator(std::string_view prompt, std::string_view rawTyped)
      : promptWords_(studyWords(prompt)), typedWords_(studyWords(rawTyped)) {}

  CorrectionEvaluation evaluate(const CorrectionEvent& event) {
    const std::string corrected = normalizedWord(event.correctedWord);
    if (corrected.empty()) return {};
    const auto position = promptPosition(event, corrected);
    if (!position) return {};
    cursor_ = std::max(cursor_, *position + 1);
    const StudyWord& expected = promptWords_[*position];
    return {expected.asWritten, text::canonicallyEqual(corrected, expected.normalized)};
  }

 private:
  std::optional<std::size_t> promptPosition(const CorrectionEvent& event,
                                            const std::string& corrected) const {
    const auto count = static_cast<std::int64_t>(promptWords_.size());
    if (event.wordIndex && *event.wordIndex >= 0 && *event.wordIndex < count) {
      return static_cast<std::size_t>(*event.wordIndex);
    }
    const auto position = typedPosition(normalizedWord(event.originalWord), corrected);
    if (position >= promptWords_.size()) return std::nullopt;
    return position;
  }

  /// Where either word was typed, from the cursor on; `SIZE_MAX` when nowhere.
  std::size_t typedPosition(const std::string& original, const std::string& corrected) const {
    for (std::size_t i = cursor_; i < typedWords_.size(); ++i) {
      const auto& typed = typedWords_[i].normalized;
      if (text::canonicallyEqual(typed, original) || text::canonicallyEqual(typed, corrected)) {
        return i;
      }
    }
    return SIZE_MAX;
  }

  std::vector<StudyWord> promptWords_, typedWords_;
  std::size_t cursor_ = 0;
};

}  // namespace

std::vector<CorrectionEvaluation> evaluateCorrections(
    const std::vector<CorrectionEvent>& correctionLog, std::string_view prompt,
    std::string_view rawTyped) {
  Evaluator evaluator(prompt, rawTyped);
  std::vector<CorrectionEvaluation> evaluations;
  evaluations.reserve(correctionLog.size());
  for (const auto& event : correctionLog) evaluations.push_back(evaluator.evaluate(event));
  return evaluations;
}

}  // namespace mirvane
