#include "analyse/session_analysis.h"

#include <algorithm>

#include "analyse/typing_course.h"
#include "model/correction_event.h"
#include "text/canonical.h"
#include "text/characters.h"

namespace mirvane {
namespace {

void count(CorrectionCounts& counts, const std::optional<bool>& isRight) {
  if (!isRight) {
    ++counts.unknown;
  } else {
    ++(*isRight ? counts.right : counts.wrong);
  }
}

class Analyst {
 public:
  Analyst(const TypedSession& session, const TypingConfig& config)
      : session_(session), config_(config), prompt_(studyWords(session.prompt)) {}

  SessionAnalysis analyse(const NearbyKeys& nearbyKeys) {
    const auto course = followTyping(session_);
    analysis_.rhythm = rhythmOf(session_.keys, config_);
    compareTexts(course);
    auto outcomes = judgeCorrections(session_, course, prompt_);
    analysis_.corrections = std::move(outcomes.corrections);
    countCorrections();
    countWords(outcomes.words);
    measureErrors();
    measureSpeed();
    measureCost();
    analysis_.keyPairs = pairKeys(session_, course, nearbyKeys);
    return std::move(analysis_);
  }

 private:
  void compareTexts(const TypingCourse& course) {
    std::vector<std::string_view> characters;
    for (const auto number : course.typed) {
      characters.emplace_back(session_.keys[number].text);
      analysis_.typed += session_.keys[number].text;
    }
    presented_ = symbolsOf(session_.prompt);
    typed_ = symbolsOf(characters);
    final_ = symbolsOf(session_.finalText);
    analysis_.promptCharacters = presented_.size();
    analysis_.typedCharacters = typed_.size();
    analysis_.finalCharacters = final_.size();
    analysis_.isFinalReproduced = text::canonicallyEqual(course.text, session_.finalText);
    analysis_.erasedCharacters =
        static_cast<std::size_t>(std::count(course.isErased.begin(), course.isErased.end(), true));
    analysis_.backspaces = static_cast<std::size_t>(
        std::count_if(session_.keys.begin(), session_.keys.end(),
                      [](const TypedKey& key) { return key.effect != TypedKey::Effect::types; }));
  }

  void countCorrections() {
    for (std::size_t i = 0; i < session_.corrections.size(); ++i) {
      const auto& kind = session_.corrections[i].kind;
      const auto& isRight = analysis_.corrections[i].isRight;
      if (kind == correction_type::manual) {
        count(analysis_.chips, isRight);
      } else if (kind == correction_type::cycle) {
        count(analysis_.cycleSteps, isRight);
      } else {
        count(analysis_.automatic, isRight);
        countKind(kind);
      }
    }
    const auto& [right, wrong, unknown] = analysis_.automatic;
    if (right + wrong > 0) {
      analysis_.precision = static_cast<double>(right) / static_cast<double>(right + wrong);
    }
    analysis_.fixes = static_cast<std::int64_t>(analysis_.backspaces) + pressesBesideKeys();
  }

  void countKind(const std::string& kind) {
    if (kind == correction_type::autoRepeat) ++analysis_.autoRepeat;
    if (kind == correction_type::autoNearby) ++analysis_.autoNearby;
    if (kind == correction_type::autoOther) ++analysis_.autoOther;
  }

  [[nodiscard]] std::int64_t pressesBesideKeys() const {
    return analysis_.chips.all() + analysis_.cycleSteps.all();
  }

  void countWords(const std::vector<CorrectedWord>& words) {
    analysis_.promptWords = prompt_.size();
    analysis_.typedWordsRight = countRightWords(prompt_, analysis_.typed);
    analysis_.finalWordsRight = countRightWords(prompt_, session_.finalText);
    for (const auto& word : words) {
      analysis_.replacedCharacters += minimumStringDistance(word.typed, word.corrected);
      if (!word.meant) continue;
      const bool wasRight = word.meant->isRight(word.typed);
      const bool isRight = word.meant->isRight(word.corrected);
      if (isRight && !wasRight) ++analysis_.wordsFixed;
      if (wasRight && !isRight) ++analysis_.wordsBroken;
    }
  }

  void measureErrors() {
    const auto erased = analysis_.erasedCharacters;
    analysis_.typedErrors = errorRates(presented_, typed_, erased);
    analysis_.finalErrors = errorRates(presented_, final_, erased + analysis_.replacedCharacters);
  }

  void measureSpeed() {
    const auto& [first, last] = std::pair(analysis_.rhythm.first, analysis_.rhythm.last);
    if (first && last) analysis_.wpm = wordsPerMinute(final_.size(), *last - *first);
    if (analysis_.wpm && analysis_.finalErrors.uncorrected) {
      analysis_.adjustedWpm = *analysis_.wpm * (1 - *analysis_.finalErrors.uncorrected);
    }
    if (!final_.empty()) {
      const auto presses = static_cast<std::int64_t>(session_.keys.size()) + pressesBesideKeys();
      analysis_.kspc = static_cast<double>(presses) / static_cast<double>(final_.size());
    }
  }

  void measureCost() {
    std::vector<double> costs;
    for (std::size_t i = 0; i < session_.corrections.size(); ++i) {
      const auto& kind = session_.corrections[i].kind;
      if (kind == correction_type::manual || kind == correction_type::cycle) continue;
      const auto& outcome = analysis_.corrections[i];
      const auto cost = analysis_.costOf(outcome);
      if (cost && outcome.isRight == false) costs.push_back(*cost);
    }
    analysis_.wrongCorrectionCost = spreadOf(std::move(costs)).mean;
  }

  const TypedSession& session_;
  const TypingConfig& config_;
  const std::vector<StudyWord> prompt_;
  SessionAnalysis analysis_;
  Symbols presented_, typed_, final_;
};

}  // namespace

std::optional<double> SessionAnalysis::costOf(const CorrectionOutcome& correction) const {
  if (!correction.continued || !rhythm.intervals.median) return std::nullopt;
  return *correction.continued - *rhythm.intervals.median;
}

SessionAnalysis analyseSession(const TypedSession& session, const TypingConfig& config,
                               const NearbyKeys& nearbyKeys) {
  return Analyst(session, config).analyse(nearbyKeys);
}

}  // namespace mirvane
