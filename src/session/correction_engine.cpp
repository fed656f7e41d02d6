#include "session/correction_engine.h"

#include <algorithm>
#include <utility>

#include "text/characters.h"
#include "text/word_boundaries.h"

namespace mirvane {
namespace {

constexpr std::size_t shownSuggestions = 3;

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

}  // namespace

CorrectionEngine::CorrectionEngine(const EngineServices& services)
    : clock_(services.correction.clock),
      sessionStart_(clock_.now()),
      startUptime_(clock_.uptimeSeconds()),
      keyInputTracker_(services.capture, services.correction.config),
      typingViewModel_(keyInputTracker_.typedWordBuffer(), true, services.correction) {
  // Tracker and view model are members: they cannot call an engine that is gone.
  keyInputTracker_.onKeyEvent = [this](const KeyEventList& events) { handleKeyEvents(events); };
  typingViewModel_.onCorrection = [this](const CorrectionEvent& event) { handleCorrection(event); };
  typingViewModel_.suggestionCycler().onCycle = [this](const std::string& previousText,
                                                       const std::string& newText) {
    handleCycle(previousText, newText);
  };
}

void CorrectionEngine::startTracking() {
  if (isTracking) return;
  if (observer != nullptr) observer->trackingChanged(true);
  keyInputTracker_.start();
  isTracking = true;
}

void CorrectionEngine::stopTracking() {
  if (!isTracking) return;
  keyInputTracker_.stop();
  isTracking = false;
  if (observer != nullptr) observer->trackingChanged(false);
}

void CorrectionEngine::handleKeyEvents(const KeyEventList& events) {
  if (events.empty()) return;
  const std::string& text = events.front().inputText;
  if (!text.empty()) {
    measurements_.keystrokeCount += static_cast<std::int64_t>(text::characterCount(text));
    measurements_.rawInputLog += text;
  }
  if (text::isBoundaryKeyText(text)) ++measurements_.wordsCompleted;
  typingViewModel_.processKeyEvents(events);
  refreshSuggestions();
}

void CorrectionEngine::handleCorrection(const CorrectionEvent& event) {
  log(event);
  if (event.type == correction_type::manual) {
    ++measurements_.manualCorrectionCount;
  } else {
    ++measurements_.autoCorrectionCount;
  }
  if (contains(event.type, "repeat")) {
    ++measurements_.repeatKeyCount;
  } else if (contains(event.type, "nearby")) {
    ++measurements_.nearbyKeyCount;
  }
  refreshSuggestions();
}

void CorrectionEngine::handleCycle(const std::string& previousText, const std::string& newText) {
  ++measurements_.cycleKeyCount;
  log({clock_.now(), previousText, newText, correction_type::cycle,
       typingViewModel_.confidence(previousText, newText), std::nullopt});
  refreshSuggestions();
}

void CorrectionEngine::log(CorrectionEvent event) {
  event.wordIndex = wordIndexFor(event.type);
  measurements_.correctionLog.push_back(std::move(event));
  if (observer != nullptr) observer->corrected(measurements_.correctionLog.back());
}

void CorrectionEngine::refreshSuggestions() {
  const auto& all = typingViewModel_.typingInfo()->suggestions;
  const auto count = static_cast<std::ptrdiff_t>(std::min(all.size(), shownSuggestions));
  suggestions_.assign({all.begin(), all.begin() + count});
  const auto& record = typingViewModel_.suggestionCycler().record;
  const auto index = record ? record->currentIndex.value_or(0) : 0;
  cycleIndex_.assign(static_cast<std::int64_t>(index));
}

void CorrectionEngine::reset() {
  suggestions_.set({});
  cycleIndex_.set(0);
  measurements_ = {};
  sessionStart_ = clock_.now();
  startUptime_ = clock_.uptimeSeconds();
  keyInputTracker_.reset();
  typingViewModel_.clear();
  restoredCycle_.reset();
  if (observer != nullptr) observer->wasReset();
}

CorrectionEngine::State CorrectionEngine::state() const {
  State state{measurements_, sessionStart_, elapsed(), typingViewModel_.suggestionCycler().record};
  if (state.cycled && state.cycled->axTarget) state.cycled->axTarget->element.reset();
  return state;
}

void CorrectionEngine::restore(State state, KeyEventList keys) {
  measurements_ = std::move(state.measurements);
  sessionStart_ = state.sessionStart;
  startUptime_ = clock_.uptimeSeconds() - state.elapsed;
  restoredCycle_ = std::move(state.cycled);
  keyInputTracker_.restore(std::move(keys));
}

void CorrectionEngine::resume() {
  typingViewModel_.resume(*keyInputTracker_.events(), std::exchange(restoredCycle_, std::nullopt));
  refreshSuggestions();
}

/// A suggestion picked by hand is for the word still being typed, everything else for the word
/// just completed, if there is one.
std::optional<std::int64_t> CorrectionEngine::wordIndexFor(std::string_view type) const {
  const auto words = measurements_.wordsCompleted;
  if (type == correction_type::manual) return words;
  if (words == 0) return std::nullopt;
  return words - 1;
}

}  // namespace mirvane
