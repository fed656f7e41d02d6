#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "capture/typed_word_buffer.h"
#include "correct/accessibility_text_replacement.h"
#include "correct/focused_text.h"
#include "correct/suggestion_cycler.h"
#include "model/correction_event.h"
#include "model/keystroke_records.h"
#include "model/typing_config.h"
#include "model/user_settings.h"
#include "observation/observable.h"
#include "platform/accessibility.h"
#include "platform/clock.h"
#include "platform/key_event_poster.h"
#include "suggest/suggestion_engine.h"

namespace mirvane {

/// Turns key presses into suggestions and corrections: after every key it works out the typing
/// state, the word at the caret and its ranked suggestions, and when a key ends a word it applies
/// the best suggestion or offers the list to the cycler.
class TypingViewModel {
 public:
  struct Services {
    const TypingConfig& config;
    const UserSettings& settings;
    const SuggestionEngine& suggestionEngine;
    const Accessibility& accessibility;
    KeyEventPoster& keyEventPoster;
    const Clock& clock;
  };

  /// The buffer is shared with the key input tracker and must outlive the view model.
  TypingViewModel(TypedWordBuffer& typedWordBuffer, bool usesContextSignals,
                  const Services& services);
  TypingViewModel(const TypingViewModel&) = delete;
  TypingViewModel& operator=(const TypingViewModel&) = delete;

  /// Called with every correction before the operation that caused it returns.
  std::function<void(const CorrectionEvent&)> onCorrection;

  [[nodiscard]] const Observable<TypingInfo>& typingInfo() const { return typingInfo_; }
  [[nodiscard]] const Observable<TypingState>& typingState() const { return typingState_; }
  [[nodiscard]] const Observable<std::optional<FeedbackType>>& feedbackType() const {
    return feedbackType_;
  }
  [[nodiscard]] SuggestionCycler& suggestionCycler() { return suggestionCycler_; }
  [[nodiscard]] const SuggestionCycler& suggestionCycler() const { return suggestionCycler_; }
  /// Where the word being typed sits in the focused element.
  [[nodiscard]] const Observable<std::optional<AXReplacementTarget>>& cachedAXTargetForCurrentWord()
      const {
    return cachedAXTargetForCurrentWord_;
  }

  /// Handles the latest key press, given the tracker's whole list, newest first.
  void processKeyEvents(const KeyEventList& events);

  /// Puts a suggestion that the participant picked in place of the word being typed.
  void applySuggestion(const std::string& picked);

  /// Takes up typing that an earlier run left: the word at the caret, the typing state of these
  /// keys, and what can be cycled in the focused element.
  void resume(const KeyEventList& events, std::optional<SuggestionCycler::Record> cycled);

  /// Forgets the word, the typing state, the feedback and what could be cycled.
  void clear();

  /// The confidence that `candidate` was meant by `typed`, 0 to 1.
  [[nodiscard]] double confidence(std::string_view typed, std::string_view candidate) const;

 private:
  using Suggestions = std::vector<std::string>;

  /// A word that a boundary key has just ended.
  struct ResolvedCompletedWord {
    CompletedTypedWord typed;
    std::optional<AXReplacementTarget> axTarget;  ///< absent when only the typed keys tell
  };

  void handleWordBoundary(const std::string& boundary);
  [[nodiscard]] std::optional<ResolvedCompletedWord> resolveCompletedWord(
      const std::string& boundary) const;
  [[nodiscard]] bool isLeftAlone(const std::string& word, const std::string& best) const;
  void applyCorrection(const ResolvedCompletedWord& resolved, const Suggestions& suggestions);
  void offerSuggestions(const ResolvedCompletedWord& resolved, const Suggestions& suggestions);

  void updateTypingState(const KeyEventList& events);
  void updateCurrentWord();
  void computeSuggestions(const std::string& word, bool fromAccessibility);
  [[nodiscard]] std::optional<ContextSignals> contextSignals() const;
  void report(const std::string& original, const std::string& corrected, const char* type);
  void setTypingInfo(TypingInfo info);

  Services services_;
  TypedWordBuffer& typedWordBuffer_;
  const bool usesContextSignals_;
  AccessibilityTextReplacement replacement_;
  SuggestionCycler suggestionCycler_;
  Observable<TypingInfo> typingInfo_;
  Observable<TypingState> typingState_;
  Observable<std::optional<FeedbackType>> feedbackType_;
  Observable<std::optional<AXReplacementTarget>> cachedAXTargetForCurrentWord_;
};

}  // namespace mirvane
