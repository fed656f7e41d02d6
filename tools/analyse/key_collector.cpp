#include "analyse/key_collector.h"

#include <utility>

#include "platform/key_codes.h"
#include "text/characters.h"

namespace mirvane {
namespace {

constexpr double msPerSecond = 1000;

bool isControlChord(std::uint64_t flags) {
  return (flags & modifier::control) != 0 && (flags & modifier::option) == 0;
}

}  // namespace

KeyCollector::KeyCollector(TypedSession& session) : session_(session) {
  session_.hasTimes = true;
  session_.resets = 0;
}

void KeyCollector::add(const RecordedEvent& event) {
  using Kind = RecordedEvent::Kind;
  if (isDone_) return;
  if (event.kind == Kind::down) press(event);
  if (event.kind == Kind::up) release(event);
  if (event.kind == Kind::reset) reset();
  if (event.kind == Kind::done) isDone_ = true;
}

void KeyCollector::add(LoggedCorrection correction) {
  correction.keysBefore = session_.keys.size();
  session_.corrections.push_back(std::move(correction));
}

void KeyCollector::press(const RecordedEvent& event) {
  const bool isHeld = latestCode_ == event.keyCode && down_.contains(event.keyCode);
  latestCode_ = event.keyCode;
  if (!isHeld) down_.insert_or_assign(event.keyCode, Down{event.t});
  const auto typed = event.text.value_or("");
  session_.raw += typed;

  const TypedKey common{.code = event.keyCode, .isHeldRepeat = isHeld};
  if (event.keyCode == keycode::deleteKey) {
    const bool erasesWord = isControlChord(event.flags);
    auto key = common;
    key.effect = erasesWord ? TypedKey::Effect::erasesWord : TypedKey::Effect::erases;
    key.text = typed;
    return append(std::move(key), event);
  }
  if (isControlChord(event.flags) || event.keyCode == keycode::forwardDelete) return;
  for (const auto character : text::characters(typed)) {
    auto key = keyOfCharacter(character);
    if (!key) continue;
    key->code = common.code;
    key->isHeldRepeat = common.isHeldRepeat;
    append(std::move(*key), event);
  }
}

void KeyCollector::append(TypedKey key, const RecordedEvent& event) {
  key.t = event.t;
  if (!key.isHeldRepeat) {
    if (latestPress_) key.gap = (event.t - *latestPress_) * msPerSecond;
    latestPress_ = event.t;
    down_[event.keyCode].key = session_.keys.size();
  }
  session_.keys.push_back(std::move(key));
}

void KeyCollector::release(const RecordedEvent& event) {
  const auto down = down_.extract(event.keyCode);
  if (down.empty() || !down.mapped().key) return;
  session_.keys[*down.mapped().key].hold = (event.t - down.mapped().t) * msPerSecond;
}

void KeyCollector::reset() {
  session_.keys.clear();
  session_.corrections.clear();
  session_.raw.clear();
  down_.clear();
  latestCode_.reset();
  latestPress_.reset();
  ++*session_.resets;
}

}  // namespace mirvane
