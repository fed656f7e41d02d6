#include "capture/key_input_tracker.h"

#include <algorithm>
#include <utility>

namespace mirvane {
namespace {

constexpr double msPerSecond = 1000.0;

}  // namespace

KeyInputTracker::KeyInputTracker(const Platform& platform, const TypingConfig& config)
    : platform_(platform), repeatKeyDetector_{config.maxInputGap, config.minimumRepeatCount} {}

void KeyInputTracker::start() {
  if (isStarted()) return;
  watchEverywhere(keyDownMonitor_, EventMask::keyDown, &KeyInputTracker::keyDown);
  watchEverywhere(keyUpMonitor_, EventMask::keyUp, &KeyInputTracker::keyUp);
  watchEverywhere(mouseDownMonitor_, EventMask::pointerDown, &KeyInputTracker::pointerDown);
  observeActivation();
  watchOwnWindows(localKeyDownMonitor_, EventMask::keyDown, &KeyInputTracker::keyDown);
  watchOwnWindows(localKeyUpMonitor_, EventMask::keyUp, &KeyInputTracker::keyUp);
}

// Where the platform refused the first of the monitors, the tracker counts as not started although
// the others stand: starting it again must not overwrite their handles.

void KeyInputTracker::watchEverywhere(Handle& monitor, EventMask kind, Entry entry) {
  if (!monitor->has_value()) {
    monitor.set(platform_.monitors.addGlobalMonitor(kind, queued(entry)));
  }
}

void KeyInputTracker::watchOwnWindows(Handle& monitor, EventMask kind, Entry entry) {
  if (!monitor->has_value()) {
    monitor.set(platform_.monitors.addLocalMonitor(kind, queued(entry)));
  }
}

void KeyInputTracker::observeActivation() {
  if (appActivationObserver_->has_value()) return;
  appActivationObserver_.set(platform_.workspace.addActivationObserver(
      [&tasks = platform_.tasks, activated = lifetime_.guard([this] { handleAppActivated(); })] {
        tasks.post(activated);
      }));
}

void KeyInputTracker::stop() {
  remove(keyDownMonitor_);
  remove(keyUpMonitor_);
  remove(mouseDownMonitor_);
  if (const auto observer = *appActivationObserver_) {
    platform_.workspace.removeActivationObserver(*observer);
    appActivationObserver_.set(std::nullopt);
  }
  remove(localKeyDownMonitor_);
  remove(localKeyUpMonitor_);
}

void KeyInputTracker::reset() {
  events_.modify([](KeyEventList& events) { events.clear(); });
  pendingKeyDowns_.modify([](auto& pending) { pending.clear(); });
  typedWordBuffer_.reset();
}

void KeyInputTracker::restore(KeyEventList events) {
  if (events.size() > eventCapacity) events.resize(eventCapacity);
  events_.assign(std::move(events));
  isRestored_ = true;
}

void KeyInputTracker::handleKeyDown(std::uint16_t keyCode, std::string_view characters,
                                    std::uint64_t modifierFlags, double timestamp,
                                    std::optional<std::int64_t> sourceUserData) {
  if (sourceUserData == syntheticEventMarker) return;
  pendingKeyDowns_.modify([&](auto& pending) { pending[keyCode] = timestamp; });
  std::optional<double> gap;
  if (!events_->empty()) gap = (timestamp - events_->front().timestamp) * msPerSecond;
  constexpr double longestGap = 60'000;  // ms that may lie between two runs
  const bool isKnown = gap && *gap >= 0 && *gap <= longestGap;
  if (std::exchange(isRestored_, false) && !isKnown) gap.reset();
  record({makeUuid(), keyCode, std::string(characters), timestamp, modifierFlags, gap, {}});
}

void KeyInputTracker::record(KeyEvent event) {
  events_.modify([&](KeyEventList& events) {
    events.push_front(std::move(event));
    if (events.size() > eventCapacity) events.pop_back();
  });
  previousRepeatedKeys_.assign(repeatKeyDetector_.detect(*events_));
  typedWordBuffer_.handle(events_->front());
  if (onKeyEvent) onKeyEvent(*events_);
}

void KeyInputTracker::handleKeyUp(std::uint16_t keyCode, double timestamp,
                                  std::optional<std::int64_t> sourceUserData) {
  if (sourceUserData == syntheticEventMarker) return;
  const auto pending = pendingKeyDowns_->find(keyCode);
  if (pending == pendingKeyDowns_->end()) return;
  const double holdTime = (timestamp - pending->second) * msPerSecond;
  pendingKeyDowns_.modify([&](auto& map) { map.erase(keyCode); });

  const auto open = std::find_if(events_->begin(), events_->end(), [&](const KeyEvent& event) {
    return event.keyCode == keyCode && !event.holdTime;
  });
  if (open == events_->end()) return;
  const auto index = static_cast<std::size_t>(open - events_->begin());
  events_.modify([&](KeyEventList& events) { events[index].holdTime = holdTime; });
}

void KeyInputTracker::handlePointerDown() {
  typedWordBuffer_.reset();
}

void KeyInputTracker::handleAppActivated() {
  typedWordBuffer_.reset();
}

EventMonitors::Handler KeyInputTracker::queued(Entry entry) {
  auto handle = lifetime_.guard([this, entry](const InputEvent& event) { (this->*entry)(event); });
  return [&tasks = platform_.tasks, handle](const InputEvent& event) {
    tasks.post([handle, event] { handle(event); });
  };
}

void KeyInputTracker::keyDown(const InputEvent& event) {
  handleKeyDown(event.keyCode, event.characters.value_or(std::string()), event.modifierFlags,
                event.timestamp, event.sourceUserData);
}

void KeyInputTracker::keyUp(const InputEvent& event) {
  handleKeyUp(event.keyCode, event.timestamp, event.sourceUserData);
}

void KeyInputTracker::pointerDown(const InputEvent&) {
  handlePointerDown();
}

void KeyInputTracker::remove(Handle& monitor) {
  if (!monitor->has_value()) return;
  platform_.monitors.removeMonitor(**monitor);
  monitor.set(std::nullopt);
}

}  // namespace mirvane
