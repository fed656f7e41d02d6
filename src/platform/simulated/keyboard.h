#pragma once

#include <cstdint>
#include <optional>

#include "platform/event_monitors.h"
#include "platform/simulated/event_dispatcher.h"
#include "platform/simulated/key_layout.h"
#include "platform/simulated/virtual_clock.h"

namespace mirvane::simulated {

/// What an event may carry besides its key.
struct EventStamp {
  /// Seconds since the system started; the clock's time when absent.
  std::optional<double> timestamp = {};
};

/// When a held key repeats, in seconds.
struct AutomaticRepeat {
  double delay = 0.5;
  double interval = 0.03;  ///< above 0
};

/// The hardware keyboard. Every operation delivers its event at once: monitors first, then the
/// focused element. It runs no task.
class Keyboard {
 public:
  Keyboard(EventDispatcher& dispatcher, VirtualClock& clock)
      : dispatcher_(dispatcher), clock_(clock) {}

  /// One key-down; it does not repeat by itself. Ends the repeat of another key.
  void press(const KeyStroke& key, EventStamp stamp = {});
  /// A key-down that repeats from now on as time advances, until it is released or another key is
  /// pressed.
  void hold(const KeyStroke& key, AutomaticRepeat timing = {});
  /// A key-up. Ends the key's repeat.
  void release(const KeyStroke& key, EventStamp stamp = {});
  /// A modifier went down or up; `modifierFlags` is the state after it.
  void flagsChanged(std::uint16_t keyCode, std::uint64_t modifierFlags, EventStamp stamp = {});

  /// When the held key repeats next, in monotonic seconds; absent when none is held.
  [[nodiscard]] std::optional<double> nextRepeat() const;
  /// Delivers the repeated key-down that is due, at the clock's time.
  void repeatHeldKey();

 private:
  struct HeldKey {
    KeyStroke key;
    double nextRepeat;
    double interval;
  };

  void deliver(EventMask kind, const KeyStroke& key, EventStamp stamp);

  EventDispatcher& dispatcher_;
  VirtualClock& clock_;
  std::optional<HeldKey> held_;
};

}  // namespace mirvane::simulated
