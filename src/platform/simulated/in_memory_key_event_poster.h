#pragma once

#include <vector>

#include "platform/key_event_poster.h"
#include "platform/simulated/event_dispatcher.h"
#include "platform/simulated/secure_input.h"
#include "platform/simulated/virtual_clock.h"
#include "platform/task_queue.h"

namespace mirvane::simulated {

/// Synthesized keys of the simulated desktop. A posted key is queued behind the tasks already
/// waiting and is delivered like any other when its turn comes: monitors first, then whatever has
/// the focus by then. Must outlive its sources and the tasks it has queued.
class InMemoryKeyEventPoster : public KeyEventPoster {
 public:
  InMemoryKeyEventPoster(EventDispatcher& dispatcher, TaskQueue& tasks, const SecureInput& secure,
                         const VirtualClock& clock)
      : dispatcher_(dispatcher), tasks_(tasks), secureInput_(secure), clock_(clock) {}

  [[nodiscard]] bool isSecureInputEnabled() const override;
  [[nodiscard]] std::unique_ptr<KeyEventSource> createSource(
      std::string_view textBeforeCaret) override;

  void setRefusesSources(bool refuses) { refusesSources_ = refuses; }

  /// All keys posted so far, delivered or not.
  [[nodiscard]] const std::vector<SynthesizedKey>& posted() const { return posted_; }
  void clearPosted() { posted_.clear(); }

 private:
  class Source;

  void post(const SynthesizedKey& key, std::int64_t userData);
  void deliver(const SynthesizedKey& key, std::int64_t userData);

  EventDispatcher& dispatcher_;
  TaskQueue& tasks_;
  const SecureInput& secureInput_;
  const VirtualClock& clock_;
  std::vector<SynthesizedKey> posted_;
  bool refusesSources_ = false;
};

}  // namespace mirvane::simulated
