#include "platform/simulated/in_memory_key_event_poster.h"

namespace mirvane::simulated {

class InMemoryKeyEventPoster::Source : public KeyEventSource {
 public:
  explicit Source(InMemoryKeyEventPoster& poster) : poster_(poster) {}

  void setUserData(std::int64_t userData) override { userData_ = userData; }
  void post(const SynthesizedKey& key) override { poster_.post(key, userData_); }

 private:
  InMemoryKeyEventPoster& poster_;
  std::int64_t userData_ = 0;
};

bool InMemoryKeyEventPoster::isSecureInputEnabled() const {
  return secureInput_.isEnabled();
}

std::unique_ptr<KeyEventSource> InMemoryKeyEventPoster::createSource(
    std::string_view /*textBeforeCaret*/) {
  if (refusesSources_) return nullptr;
  return std::make_unique<Source>(*this);
}

void InMemoryKeyEventPoster::post(const SynthesizedKey& key, std::int64_t userData) {
  posted_.push_back(key);
  tasks_.post([this, key, userData] { deliver(key, userData); });
}

void InMemoryKeyEventPoster::deliver(const SynthesizedKey& key, std::int64_t userData) {
  InputEvent event;
  event.kind = key.isDown ? EventMask::keyDown : EventMask::keyUp;
  event.keyCode = key.keyCode;
  if (!key.text.empty()) event.characters = key.text;
  event.modifierFlags = key.modifierFlags;
  event.timestamp = clock_.monotonicSeconds();
  event.sourceUserData = userData;
  dispatcher_.deliverSynthesizedKey(event);
}

}  // namespace mirvane::simulated
