#include "replay/recorded_session.h"

#include <chrono>

#include "capture/cycle_key_monitor.h"
#include "platform/simulated/in_memory_bundle.h"

namespace mirvane {
namespace {

using simulated::ElementKind;

constexpr const char* studyIdentifier = "org.mirvane.MirvaneTest";

ElementKind elementKindOf(RecordedField::Kind kind) {
  switch (kind) {
    case RecordedField::Kind::normal:
      return ElementKind::multiLine;
    case RecordedField::Kind::ignoresWrites:
      return ElementKind::ignoresAccessibilityWrites;
    case RecordedField::Kind::noAccessibility:
      return ElementKind::withoutAccessibility;
    case RecordedField::Kind::password:
      return ElementKind::password;
  }
  return ElementKind::multiLine;
}

TypingConfig typingConfigOf(const Recording& recording, ShippedResources& shipped) {
  if (!recording.parameters) return shipped.typingConfig();
  return *recording.parameters ? parseTypingConfig(**recording.parameters) : TypingConfig{};
}

Clock::DateTime secondsAfter(Clock::DateTime start, double seconds) {
  return start +
         std::chrono::round<Clock::DateTime::duration>(std::chrono::duration<double>(seconds));
}

VocabularyTable tableOf(const RecordedLanguage::Weights& weights) {
  VocabularyTable table;
  for (const auto& [key, weight] : weights) table.insert(key, weight);
  return table;
}

}  // namespace

struct RecordedSession::OwnLanguage {
  explicit OwnLanguage(const RecordedLanguage& recorded)
      : spellChecker(recorded.words),
        embedding(recorded.distances),
        tagger(recorded.tags),
        vocabulary{tableOf(recorded.unigrams), tableOf(recorded.bigrams)},
        hasEmbedding(recorded.hasEmbedding) {}

  [[nodiscard]] LanguageServices services() const {
    return {spellChecker, hasEmbedding ? &embedding : nullptr, tagger, vocabulary};
  }

  simulated::ScriptedSpellChecker spellChecker;
  simulated::ScriptedWordEmbedding embedding;
  simulated::ScriptedLexicalTagger tagger;
  ContextScore::Vocabulary vocabulary;
  bool hasEmbedding;
};

RecordedSession::RecordedSession(const Recording& recording, ShippedResources& shipped,
                                 Clock::DateTime start)
    : recording_(recording),
      start_(start),
      field_(openField()),
      settings_(defaults_, desktop_.workspace()),
      ownLanguage_(recording.language ? std::make_shared<OwnLanguage>(*recording.language)
                                      : nullptr),
      config_(typingConfigOf(recording, shipped)),
      suggestionEngine_(config_, settings_,
                        ownLanguage_ ? ownLanguage_->services() : shipped.language()),
      engine_(engineServices()) {
  applySettings();
  engine_.startTracking();
  if (recording.session == 2) installCycleKey();
}

/// The study's own window with its text field; the clocks show the start of the session.
simulated::TextElement& RecordedSession::openField() {
  desktop_.clock().setMonotonicSeconds(0);
  desktop_.clock().setNow(start_);
  const auto& field = recording_.field;
  auto& element =
      desktop_.openElement(elementKindOf(field.kind), field.text,
                           {recording_.settings.frontmost.value_or(studyIdentifier), true});
  if (field.caret) element.placeCaret(*field.caret);
  return element;
}

EngineServices RecordedSession::engineServices() {
  return {{desktop_.monitors(), desktop_.workspace(), desktop_.tasks()},
          {config_, settings_, suggestionEngine_, desktop_.accessibility(), desktop_.poster(),
           desktop_.clock()}};
}

void RecordedSession::applySettings() {
  const auto& settings = recording_.settings;
  if (settings.isAutoCorrectionEnabled) {
    settings_.setIsAutoCorrectionEnabled(*settings.isAutoCorrectionEnabled);
  }
  if (settings.allowList) settings_.setAllowList(*settings.allowList);
  if (settings.disabledAppBundleIDs) {
    settings_.setDisabledAppBundleIDs(*settings.disabledAppBundleIDs);
  }
}

void RecordedSession::installCycleKey() {
  installCycleKeyMonitor(desktop_.monitors(), desktop_.tasks(), cycleKeyMonitor_, [this] {
    engine_.typingViewModel().suggestionCycler().cycle();
    engine_.refreshSuggestions();
  });
}

void RecordedSession::play(const RecordedEvent& event) {
  using Kind = RecordedEvent::Kind;
  desktop_.advanceTo(event.t);
  if (isDone_) return;
  auto& keyboard = desktop_.keyboard();
  const simulated::KeyStroke key{event.keyCode, event.text, event.flags};
  switch (event.kind) {
    case Kind::down:
      keyboard.press(key, {event.t});
      break;
    case Kind::up:
      keyboard.release(key, {event.t});
      break;
    case Kind::flags:
      keyboard.flagsChanged(event.keyCode, event.flags, {event.t});
      break;
    case Kind::pointer:
      // A click that reached another application and left the field the focus.
      engine_.keyInputTracker().handlePointerDown();
      break;
    case Kind::activate:
      activate(event.app);
      break;
    case Kind::chip:
      pickChip(event.index);
      break;
    case Kind::reset:
      reset();
      break;
    case Kind::done:
      finish();
      break;
  }
  desktop_.settle();
}

void RecordedSession::playAll() {
  for (const auto& event : recording_.events) play(event);
}

/// A recording has one text field: whichever application becomes active holds it.
void RecordedSession::activate(const std::string& app) {
  auto& application = *desktop_.workspace().frontmost();
  application.setBundleIdentifier(app);
  desktop_.workspace().activate(application);
}

void RecordedSession::pickChip(std::size_t index) {
  if (index >= engine_.suggestions()->size()) return;
  engine_.typingViewModel().applySuggestion((*engine_.suggestions())[index]);
  engine_.refreshSuggestions();
}

void RecordedSession::reset() {
  engine_.reset();
  field_.setText({});
}

void RecordedSession::finish() {
  removeCycleKeyMonitor(desktop_.monitors(), cycleKeyMonitor_);
  engine_.stopTracking();
  isDone_ = true;
}

Clock::DateTime RecordedSession::end() const {
  return secondsAfter(start_, recording_.endTime());
}

SessionSnapshot RecordedSession::snapshot() const {
  return makeSessionSnapshot(recording_.session, recording_.prompt, field_.text(), engine_, end());
}

}  // namespace mirvane
