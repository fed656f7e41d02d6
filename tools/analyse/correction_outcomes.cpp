#include "analyse/correction_outcomes.h"

#include <algorithm>
#include <map>

namespace mirvane {
namespace {

constexpr double msPerSecond = 1000;

bool isErased(const TypingCourse& course, const TypedField::KeyNumbers& word) {
  return std::any_of(word.begin(), word.end(),
                     [&](std::size_t number) { return course.isErased[number]; });
}

std::string textOf(const TypedSession& session, const TypedField::KeyNumbers& word) {
  std::string text;
  for (const auto number : word) text += session.keys[number].text;
  return text;
}

std::optional<double> continuedAfter(const TypedSession& session, const CorrectedPlace& place,
                                     const LoggedCorrection& correction) {
  if (!place.continuedBy || !correction.t) return std::nullopt;
  const auto next = session.keys[*place.continuedBy].t;
  if (!next) return std::nullopt;
  return (*next - *correction.t) * msPerSecond;
}

class Judge {
 public:
  Judge(const TypedSession& session, const TypingCourse& course,
        const std::vector<StudyWord>& prompt)
      : session_(session),
        course_(course),
        prompt_(prompt),
        whole_(prompt, session.keys, course.typed, Prompt::whole) {}

  CorrectionOutcomes judge() {
    CorrectionOutcomes outcomes;
    for (std::size_t i = 0; i < session_.corrections.size(); ++i) {
      outcomes.corrections.push_back(outcomeOf(session_.corrections[i], course_.corrections[i]));
      followWord(i, outcomes.corrections.back().meant);
    }
    for (auto& [key, word] : words_) outcomes.words.push_back(std::move(word));
    return outcomes;
  }

 private:
  [[nodiscard]] CorrectionOutcome outcomeOf(const LoggedCorrection& correction,
                                            const CorrectedPlace& place) const {
    CorrectionOutcome outcome{.meant = meantAt(place)};
    if (outcome.meant) {
      outcome.isRight = outcome.meant->isRight(correction.corrected);
      outcome.wasRight = outcome.meant->isRight(correction.original);
    }
    outcome.continued = continuedAfter(session_, place, correction);
    return outcome;
  }

  /// A word that was erased later is looked for in what stood in the text with it.
  [[nodiscard]] std::optional<MeantWord> meantAt(const CorrectedPlace& place) const {
    if (!isErased(course_, place.word)) return whole_.meantBy(place.word);
    return PromptWords(prompt_, session_.keys, place.keysThen, Prompt::beginning)
        .meantBy(place.word);
  }

  void followWord(std::size_t correction, const std::optional<MeantWord>& meant) {
    const auto& word = course_.corrections[correction].word;
    if (word.empty() || isErased(course_, word)) return;
    auto& entry = words_.try_emplace(word.front(), CorrectedWord{textOf(session_, word), {}, meant})
                      .first->second;
    entry.corrected = session_.corrections[correction].corrected;
  }

  const TypedSession& session_;
  const TypingCourse& course_;
  const std::vector<StudyWord>& prompt_;
  PromptWords whole_;
  std::map<std::size_t, CorrectedWord> words_;  // by the first key
};

}  // namespace

CorrectionOutcomes judgeCorrections(const TypedSession& session, const TypingCourse& course,
                                    const std::vector<StudyWord>& prompt) {
  return Judge(session, course, prompt).judge();
}

}  // namespace mirvane
