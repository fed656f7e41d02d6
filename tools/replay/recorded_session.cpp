#include "replay/recorded_session.h"

#include <chrono>

#include "capture/cycle_key_monitor.h"

namespace mirvane {
namespace {

using simulated::ElementKind;

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

SimulatedField fieldOf(const Recording& recording) {
  SimulatedField field{.kind = elementKindOf(recording.field.kind), .text = recording.field.text};
  if (recording.settings.frontmost) field.application = *recording.settings.frontmost;
  return field;
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

class RecordedSession::OwnLanguage {
 public:
  explicit OwnLanguage(const RecordedLanguage& recorded)
      : spellChecker_(recorded.words),
        embedding_(recorded.distances),
        tagger_(recorded.tags),
        vocabulary_{tableOf(recorded.unigrams), tableOf(recorded.bigrams)},
        hasEmbedding_(recorded.hasEmbedding) {}

  [[nodiscard]] LanguageServices services() const {
    return {spellChecker_, hasEmbedding_ ? &embedding_ : nullptr, tagger_, vocabulary_};
  }

 private:
  simulated::ScriptedSpellChecker spellChecker_;
  simulated::ScriptedWordEmbedding embedding_;
  simulated::ScriptedLexicalTagger tagger_;
  ContextScore::Vocabulary vocabulary_;
  bool hasEmbedding_;
};

RecordedSession::RecordedSession(const Recording& recording, ShippedResources& shipped,
                                 Clock::DateTime start)
    : recording_(recording), start_(start), config_(typingConfigOf(recording, shipped)) {
  if (recording.language) ownLanguage_ = std::make_unique<OwnLanguage>(*recording.language);
  session_ = std::make_unique<SimulatedSession>(
      config_, ownLanguage_ ? ownLanguage_->services() : shipped.language(), fieldOf(recording));
  startClocks();
  if (recording.field.caret) session_->field().placeCaret(*recording.field.caret);
  applySettings();
  if (recording.session == 2) installCycleKey();
}

RecordedSession::~RecordedSession() = default;

/// The session begins now: at second 0 of the recording.
void RecordedSession::startClocks() {
  session_->desktop().clock().setMonotonicSeconds(0);
  session_->desktop().clock().setNow(start_);
  session_->engine().reset();
}

void RecordedSession::applySettings() {
  const auto& wanted = recording_.settings;
  auto& settings = session_->settings();
  if (wanted.isAutoCorrectionEnabled) {
    settings.setIsAutoCorrectionEnabled(*wanted.isAutoCorrectionEnabled);
  }
  if (wanted.allowList) settings.setAllowList(*wanted.allowList);
  if (wanted.disabledAppBundleIDs) {
    settings.setDisabledAppBundleIDs(*wanted.disabledAppBundleIDs);
  }
}

void RecordedSession::installCycleKey() {
  auto& desktop = session_->desktop();
  auto& engine = session_->engine();
  installCycleKeyMonitor(desktop.monitors(), desktop.tasks(), cycleKeyMonitor_, [&engine] {
    engine.typingViewModel().suggestionCycler().cycle();
    engine.refreshSuggestions();
  });
}

void RecordedSession::play(const RecordedEvent& event) {
  using Kind = RecordedEvent::Kind;
  auto& desktop = session_->desktop();
  desktop.advanceTo(event.t);
  if (isDone_) return;
  auto& keyboard = desktop.keyboard();
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
      session_->engine().keyInputTracker().handlePointerDown();
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
    case Kind::correction:
      // What the engine made of the events before it: it does so again.
      break;
  }
  desktop.settle();
}

void RecordedSession::playAll() {
  for (const auto& event : recording_.events) play(event);
}

/// A recording has one text field: whichever application becomes active holds it.
void RecordedSession::activate(const std::string& app) {
  auto& workspace = session_->desktop().workspace();
  workspace.frontmost()->setBundleIdentifier(app);
  workspace.activate(*workspace.frontmost());
}

void RecordedSession::pickChip(std::size_t index) {
  auto& engine = session_->engine();
  if (index >= engine.suggestions()->size()) return;
  engine.typingViewModel().applySuggestion((*engine.suggestions())[index]);
  engine.refreshSuggestions();
}

void RecordedSession::reset() {
  session_->engine().reset();
  session_->field().setText({});
}

void RecordedSession::finish() {
  removeCycleKeyMonitor(session_->desktop().monitors(), cycleKeyMonitor_);
  session_->engine().stopTracking();
  isDone_ = true;
}

Clock::DateTime RecordedSession::end() const {
  return secondsAfter(start_, recording_.endTime());
}

SessionSnapshot RecordedSession::snapshot() const {
  const std::chrono::duration<double> elapsed = end() - engine().sessionStart();
  return makeSessionSnapshot(recording_.session, recording_.prompt, field().text(), engine(),
                             elapsed.count());
}

}  // namespace mirvane
