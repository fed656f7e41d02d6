#include "correct/typing_view_model.h"

#include <algorithm>
#include <utility>

#include "correct/auto_apply_rule.h"
#include "correct/correction_confidence.h"
#include "correct/typing_state_analysis.h"
#include "text/canonical.h"
#include "text/characters.h"
#include "text/letter_case.h"
#include "text/utf16.h"
#include "text/word_boundaries.h"

namespace mirvane {
namespace {

constexpr std::size_t contextSpan = 6;  // words on each side

bool isBoundaryKey(const KeyEvent& event) {
  return text::isBoundaryKeyText(event.inputText);
}

const char* correctionTypeFor(std::string_view typed, std::string_view corrected) {
  const auto before = text::characterCount(typed), after = text::characterCount(corrected);
  if (after < before) return correction_type::autoRepeat;
  return after == before ? correction_type::autoNearby : correction_type::autoOther;
}

std::vector<std::string> firstCandidates(const std::vector<std::string>& texts) {
  const auto count = std::min(texts.size(), SuggestionCycler::maximumCandidates);
  return {texts.begin(), texts.begin() + static_cast<std::ptrdiff_t>(count)};
}

/// `first`, then the others that differ from it in more than letter case; the first three.
std::vector<std::string> candidatesLedBy(const std::string& first,
                                         const std::vector<std::string>& others) {
  std::vector<std::string> candidates{first};
  std::copy_if(others.begin(), others.end(), std::back_inserter(candidates),
               [&](const std::string& other) { return !text::equalIgnoringCase(other, first); });
  return firstCandidates(candidates);
}

std::optional<std::size_t> positionOf(const std::string& text,
                                      const std::vector<std::string>& texts) {
  const auto found = std::find_if(texts.begin(), texts.end(), [&](const std::string& entry) {
    return text::canonicallyEqual(entry, text);
  });
  if (found == texts.end()) return std::nullopt;
  return static_cast<std::size_t>(found - texts.begin());
}

/// The target of a word after it was replaced; absent unless that went through accessibility.
std::optional<AXReplacementTarget> targetOfReplacement(
    ReplacementResult result, const std::optional<AXReplacementTarget>& target,
    std::string_view replacement) {
  if (result != ReplacementResult::accessibility || !target) return std::nullopt;
  return AXReplacementTarget{
      target->element, {target->range.location, text::utf16Length(replacement)}, std::nullopt};
}

bool isSameInfo(const TypingInfo& a, const TypingInfo& b) {
  return a.text == b.text && a.word == b.word && a.suggestions == b.suggestions &&
         a.showSuggestions == b.showSuggestions;
}

}  // namespace

TypingViewModel::TypingViewModel(TypedWordBuffer& typedWordBuffer, bool usesContextSignals,
                                 const Services& services)
    : services_(services),
      typedWordBuffer_(typedWordBuffer),
      usesContextSignals_(usesContextSignals),
      replacement_(services.keyEventPoster),
      suggestionCycler_(services.settings, replacement_) {}

void TypingViewModel::processKeyEvents(const KeyEventList& events) {
  if (!events.empty()) {
    if (isBoundaryKey(events.front())) {
      handleWordBoundary(events.front().inputText);
    } else {
      suggestionCycler_.record.reset();
    }
  }
  updateTypingState(events);
  updateCurrentWord();
}

void TypingViewModel::handleWordBoundary(const std::string& boundary) {
  if (!services_.settings.isCorrectionActive() || suggestionCycler_.record) return;
  if (typingInfo_->suggestions.empty()) return;
  // A copy: whoever is told of the correction may replace the list.
  const Suggestions suggestions = typingInfo_->suggestions;
  const auto resolved = resolveCompletedWord(boundary);
  if (!resolved) return;
  const std::string& word = resolved->typed.word;
  if (services_.settings.isAllowListed(word)) return;
  if (isLeftAlone(word, suggestions.front())) {
    offerSuggestions(*resolved, suggestions);
  } else {
    applyCorrection(*resolved, suggestions);
  }
}

std::optional<TypingViewModel::ResolvedCompletedWord> TypingViewModel::resolveCompletedWord(
    const std::string& boundary) const {
  if (const auto found = lastCompletedWordBeforeCaret(services_.accessibility)) {
    const auto end = found->range.location + found->range.length;
    return ResolvedCompletedWord{{found->word, boundary},
                                 AXReplacementTarget{found->element, found->range, end}};
  }
  if (const auto& typed = typedWordBuffer_.lastCompletedWord()) {
    return ResolvedCompletedWord{*typed, std::nullopt};
  }
  return std::nullopt;
}

/// Whether the word is only offered alternatives: it is right, there is nothing better, or the
/// better one is not sure enough.
bool TypingViewModel::isLeftAlone(const std::string& word, const std::string& best) const {
  return services_.suggestionEngine.knownWords.isSpelledCorrectly(text::lowercased(word)) ||
         text::equalIgnoringCase(best, word) ||
         isUncertainCorrection(confidence(word, best), typingState_->motorPrior,
                               services_.config.autoApplyThreshold);
}

void TypingViewModel::applyCorrection(const ResolvedCompletedWord& resolved,
                                      const Suggestions& suggestions) {
  const auto& [word, boundary] = resolved.typed;
  const std::string& best = suggestions.front();
  auto target = resolved.axTarget;
  if (target) {
    target->caretAfter =
        target->range.location + text::utf16Length(best) + text::utf16Length(boundary);
  }
  const auto result = replacement_.replaceFinishedWord(word, boundary, best, target);
  report(word, best, correctionTypeFor(word, best));
  auto candidates = firstCandidates(suggestions);
  const auto index = positionOf(best, candidates);
  suggestionCycler_.record = {word,     std::move(candidates),
                              index,    best,
                              boundary, targetOfReplacement(result, target, best)};
  typedWordBuffer_.replaceCompletedWord({best, boundary});
}

void TypingViewModel::offerSuggestions(const ResolvedCompletedWord& resolved,
                                       const Suggestions& suggestions) {
  if (suggestions.size() < 2) return;
  const auto& [word, boundary] = resolved.typed;
  auto candidates = candidatesLedBy(word, suggestions);
  suggestionCycler_.record = {word, std::move(candidates), 0, word, boundary, resolved.axTarget};
}

void TypingViewModel::updateTypingState(const KeyEventList& events) {
  const TypingState state = analyzeTypingState(events, services_.config);
  typingState_.assign(state);
  if (*feedbackType_ == FeedbackType::nearbyKeyDetected) return;
  feedbackType_.set(derivedFeedbackType(state.isRepeating, state.isHesitating, state.typingScore,
                                        services_.config));
}

void TypingViewModel::updateCurrentWord() {
  if (!services_.settings.isCorrectionActive()) {
    cachedAXTargetForCurrentWord_.set(std::nullopt);
    setTypingInfo({});
    feedbackType_.set(std::nullopt);
    return;
  }
  if (const auto found = currentWordBeforeCaret(services_.accessibility)) {
    cachedAXTargetForCurrentWord_.set(
        AXReplacementTarget{found->element, found->range, std::nullopt});
    computeSuggestions(found->word, true);
    return;
  }
  cachedAXTargetForCurrentWord_.set(std::nullopt);
  if (typedWordBuffer_.currentWord().empty()) {
    setTypingInfo({});
  } else {
    computeSuggestions(typedWordBuffer_.currentWord(), false);
  }
}

void TypingViewModel::computeSuggestions(const std::string& word, bool fromAccessibility) {
  const auto context = usesContextSignals_ && fromAccessibility ? contextSignals() : std::nullopt;
  auto ranked =
      services_.suggestionEngine.suggestionsFor(word, context ? &*context : nullptr, *typingState_);
  const auto length = text::characterCount(word);
  const bool hasWordOfEqualLength =
      std::any_of(ranked.begin(), ranked.end(),
                  [&](const std::string& entry) { return text::characterCount(entry) == length; });
  if (hasWordOfEqualLength) feedbackType_.set(FeedbackType::nearbyKeyDetected);

  const bool showSuggestions = !ranked.empty();
  setTypingInfo({{}, word, std::move(ranked), showSuggestions});
}

std::optional<ContextSignals> TypingViewModel::contextSignals() const {
  const auto state = readFocusedTextState(services_.accessibility);
  if (!state) return std::nullopt;
  // One word more than the span on the left: the word that is being ranked.
  const auto around = readTextAroundCaret(*state, contextSpan + 1);
  if (!around) return std::nullopt;
  return extractContextSignals(around->text, around->caret, contextSpan,
                               services_.suggestionEngine.contextScore.tagger());
}

void TypingViewModel::applySuggestion(const std::string& picked) {
  if (!*services_.settings.isAutoCorrectionEnabled()) {
    setTypingInfo({});
    feedbackType_.set(std::nullopt);
    return;
  }
  // All copies: whoever is told of the correction may replace the lists they came from.
  const std::string suggestion = picked;
  const auto [text, word, suggestions, isShown] = *typingInfo_;
  const auto target = *cachedAXTargetForCurrentWord_;
  const auto result = replacement_.replaceCurrentWord(word, suggestion, target);
  report(word, suggestion, correction_type::manual);
  suggestionCycler_.record = {word.empty() ? suggestion : word,
                              candidatesLedBy(suggestion, suggestions),
                              0,
                              suggestion,
                              {},
                              targetOfReplacement(result, target, suggestion)};
  typedWordBuffer_.replaceCurrentWord(suggestion);
  cachedAXTargetForCurrentWord_.set(std::nullopt);
  setTypingInfo({});
  feedbackType_.set(std::nullopt);
}

void TypingViewModel::resume(const KeyEventList& events,
                             std::optional<SuggestionCycler::Record> cycled) {
  if (cycled && cycled->axTarget) {
    cycled->axTarget->element = services_.accessibility.focusedElement();
    if (!cycled->axTarget->element) cycled->axTarget.reset();
  }
  suggestionCycler_.record = std::move(cycled);
  updateTypingState(events);
  updateCurrentWord();
}

void TypingViewModel::clear() {
  setTypingInfo({});
  typingState_.assign({});
  feedbackType_.set(std::nullopt);
  suggestionCycler_.record.reset();
}

double TypingViewModel::confidence(std::string_view typed, std::string_view candidate) const {
  return correctionConfidence(typed, candidate, services_.suggestionEngine.knownWords,
                              services_.suggestionEngine.nearbyKeys);
}

void TypingViewModel::report(const std::string& original, const std::string& corrected,
                             const char* type) {
  if (!onCorrection) return;
  onCorrection({services_.clock.now(), original, corrected, type, confidence(original, corrected),
                std::nullopt});
}

void TypingViewModel::setTypingInfo(TypingInfo info) {
  if (!isSameInfo(*typingInfo_, info)) typingInfo_.assign(std::move(info));
}

}  // namespace mirvane
