#pragma once

#include <cstdint>
#include <deque>
#include <vector>

#include "platform/linux/x11/posted_keys.h"
#include "platform/linux/x11/x_display.h"

namespace mirvane {

/// Makes the participant's keys wait while a word is being replaced, and gives them back in order.
///
/// There are two ways. *Frozen*, the X server itself keeps all keys back, those of XTEST included,
/// and delivers them afterwards as if nothing had been: nothing can be lost, not even when this
/// process dies. It is enough while text is replaced through accessibility. *Held back*, the
/// hardware's keys come here instead of going to the application, so that XTEST can type in
/// between; they are typed again through XTEST afterwards.
class KeyboardHold {
 public:
  /// `display` is used by this object alone.
  KeyboardHold(XDisplay display, PostedKeys& posted);

  /// Freezes the keyboard. False when another program has it to itself (a screen lock, a password
  /// prompt, an open menu): what is typed then is nobody's business.
  [[nodiscard]] bool freeze();
  [[nodiscard]] bool isFrozen() const { return isFrozen_; }

  /// Ends freezing; does nothing when not frozen.
  void thaw();

  /// Holds the hardware's keys back, frozen or not.
  void holdBack();

  /// Types what was held back and lets the hardware's keys go to the applications again. Does
  /// nothing when none are held back.
  void giveBack();

  /// Whether the event of the hardware was taken here and will be given back. To be asked once for
  /// each event.
  [[nodiscard]] bool takesEvent(std::uint32_t scanCode, bool isDown);

 private:
  struct HeldKey {
    std::uint32_t scanCode = 0;
    bool isDown = true;
    double timestamp = 0;  ///< seconds
  };

  [[nodiscard]] std::vector<int> hardwareKeyboards() const;
  void takePendingKeys();
  void typeHeldKeys();
  void post(const PostedKeys::Key& key);

  XDisplay display_;
  PostedKeys& posted_;
  int inputOpcode_ = 0;
  bool isFrozen_ = false;
  std::vector<int> grabbedKeyboards_;
  std::deque<HeldKey> held_;
  /// Keys taken out of the frozen queue, whose events still reach those who watch.
  std::deque<HeldKey> announced_;
};

}  // namespace mirvane
