#pragma once

#include <QKeyEvent>
#include <cstdint>
#include <set>

namespace mirvane {

/// Which modifier keys are down, key by key: the desktop itself does not tell the left Alt key
/// from the right one, nor AltGr from Alt.
class ModifierKeys {
 public:
  /// Takes note of the press or release of a modifier key; automatic repeat changes nothing.
  void note(std::uint16_t keyCode, bool isDown);

  /// Forgets all keys, whose releases may go to another application.
  void forget() { held_.clear(); }

  /// The modifier-flag word right after `event`: what is held here, joined by what the desktop
  /// knows to be held since before this window was active.
  [[nodiscard]] std::uint64_t flagsAfter(const QKeyEvent& event, std::uint16_t keyCode) const;

  /// The modifier-flag word of the keys held here.
  [[nodiscard]] std::uint64_t heldFlags() const;

 private:
  std::set<std::uint16_t> held_;
};

}  // namespace mirvane
