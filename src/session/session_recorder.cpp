#include "session/session_recorder.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace mirvane {
namespace {

using Kind = RecordedEvent::Kind;

constexpr auto everyKey = static_cast<EventMask>(
    static_cast<std::uint64_t>(EventMask::keyDown) | static_cast<std::uint64_t>(EventMask::keyUp) |
    static_cast<std::uint64_t>(EventMask::flagsChanged));

Kind kindOf(EventMask kind) {
  switch (kind) {
    case EventMask::keyDown:
      return Kind::down;
    case EventMask::keyUp:
      return Kind::up;
    case EventMask::flagsChanged:
    case EventMask::pointerDown:
      break;
  }
  return Kind::flags;
}

/// When the key went up that went down with `press`; absent when it was pressed again before.
std::optional<double> releaseOf(std::vector<RecordedEvent>::const_iterator press,
                                std::vector<RecordedEvent>::const_iterator end) {
  const auto next = std::find_if(press + 1, end, [&](const RecordedEvent& event) {
    return event.keyCode == press->keyCode && (event.kind == Kind::down || event.kind == Kind::up);
  });
  if (next == end || next->kind == Kind::down) return std::nullopt;
  return next->t;
}

}  // namespace

SessionRecorder::SessionRecorder(std::int64_t session, CorrectionEngine& engine,
                                 const Platform& platform)
    : engine_(engine),
      platform_(platform),
      origin_(platform.clock.monotonicSeconds()),
      record_{{.session = session, .start = platform.clock.now(), .origin = origin_}, {}} {
  engine_.observer = this;
}

SessionRecorder::~SessionRecorder() {
  stopWatching();
  engine_.observer = nullptr;
}

void SessionRecorder::trackingChanged(bool isTracking) {
  if (isTracking) {
    watch();
  } else {
    stopWatching();
  }
}

/// The origin of a key is the scope of the monitor that saw it. The tasks run before the tracker's,
/// whose monitors come later: a key stands before what the engine makes of it.
void SessionRecorder::watch() {
  const auto queued = [this](void (SessionRecorder::*take)(const InputEvent&)) {
    return
        [&tasks = platform_.tasks, taken = lifetime_.guard([this, take](const InputEvent& event) {
          (this->*take)(event);
        })](const InputEvent& event) { tasks.post([taken, event] { taken(event); }); };
  };
  ownKeys_ = platform_.monitors.addLocalMonitor(everyKey, queued(&SessionRecorder::recordKey));
  keysElsewhere_ = platform_.monitors.addGlobalMonitor(EventMask::keyDown,
                                                       queued(&SessionRecorder::noteKeyElsewhere));
}

void SessionRecorder::stopWatching() {
  for (auto* const monitor : {&ownKeys_, &keysElsewhere_}) {
    if (*monitor) platform_.monitors.removeMonitor(**monitor);
    monitor->reset();
  }
}

void SessionRecorder::recordKey(const InputEvent& event) {
  if (event.sourceUserData == syntheticEventMarker) return;
  if (event.kind == EventMask::keyDown) {
    wasLastKeyOwn_ = true;
    record_.times.lastKey = platform_.clock.now();
    if (!record_.times.firstKey) record_.times.firstKey = record_.times.lastKey;
  }
  add({.kind = kindOf(event.kind),
       .t = secondsAt(steadyTimeOf(event.timestamp)),
       .keyCode = event.keyCode,
       .text = event.characters,
       .flags = event.modifierFlags});
}

void SessionRecorder::noteKeyElsewhere(const InputEvent& event) {
  if (event.sourceUserData == syntheticEventMarker) return;
  wasLastKeyOwn_ = false;
  announce();
}

void SessionRecorder::corrected(const CorrectionEvent& logged) {
  announce();
  // Every correction is of the word that the latest key belongs to, wherever that was typed.
  if (!wasLastKeyOwn_) return;
  if (logged.type == correction_type::manual) recordChip(logged.correctedWord);
  add({.kind = Kind::correction,
       .t = seconds(),
       .correction = {logged.type, logged.originalWord, logged.correctedWord, logged.wordIndex,
                      logged.confidence}});
}

void SessionRecorder::recordChip(const std::string& suggestion) {
  const auto& chips = *engine_.suggestions();
  const auto picked = std::find(chips.begin(), chips.end(), suggestion);
  if (picked == chips.end()) return;
  add({.kind = Kind::chip,
       .t = seconds(),
       .index = static_cast<std::size_t>(picked - chips.begin())});
}

void SessionRecorder::wasReset() {
  record_.times.resets.push_back(platform_.clock.now());
  record_.times.firstKey.reset();
  record_.times.lastKey.reset();
  wasLastKeyOwn_ = true;
  add({.kind = Kind::reset, .t = seconds()});
}

void SessionRecorder::done(std::string text) {
  add({.kind = Kind::done, .t = seconds(), .text = std::move(text)});
}

void SessionRecorder::restore(Record record, double seconds) {
  record_ = std::move(record);
  origin_ = platform_.clock.monotonicSeconds() - seconds;
}

KeyEventList SessionRecorder::keyEvents() const {
  constexpr double msPerSecond = 1000;
  KeyEventList keys;
  const auto& events = record_.events;
  for (auto event = events.begin(); event != events.end(); ++event) {
    if (event->kind == Kind::reset) keys.clear();
    if (event->kind != Kind::down) continue;
    KeyEvent key{makeUuid(),
                 event->keyCode,
                 event->text.value_or(std::string()),
                 origin_ + event->t,
                 event->flags,
                 {},
                 {}};
    if (!keys.empty()) key.inputGap = (key.timestamp - keys.front().timestamp) * msPerSecond;
    if (const auto up = releaseOf(event, events.end())) {
      key.holdTime = (*up - event->t) * msPerSecond;
    }
    keys.push_front(std::move(key));
    if (keys.size() > KeyInputTracker::eventCapacity) keys.pop_back();
  }
  return keys;
}

void SessionRecorder::add(RecordedEvent event) {
  record_.events.push_back(std::move(event));
  announce();
}

void SessionRecorder::announce() const {
  if (onChange) onChange();
}

/// The display may be another machine's, with a clock of its own: then its first key tells how far
/// the two are apart.
double SessionRecorder::steadyTimeOf(double timestamp) {
  constexpr double latest = 10;  // seconds that a key may be on its way
  const double now = platform_.clock.monotonicSeconds();
  if (std::abs(now - (timestamp + displayLag_)) > latest) displayLag_ = now - timestamp;
  return timestamp + displayLag_;
}

/// A key that was pressed before the session began is its second 0.
double SessionRecorder::secondsAt(double monotonicSeconds) const {
  constexpr double steps = 1e6;  // what is finer is noise of the subtraction
  return std::max(0.0, std::round((monotonicSeconds - origin_) * steps) / steps);
}

}  // namespace mirvane
