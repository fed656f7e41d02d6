#pragma once

#include <cstdint>
#include <deque>
#include <set>
#include <vector>

#include "platform/linux/x11/posted_keys.h"
#include "platform/linux/x11/x_display.h"

namespace mirvane {

/// Makes the participant's keys wait while a word is being replaced, and gives them back in order:
/// the hardware's keyboards are grabbed one by one, so that their keys come here instead of going
/// to the application, and are typed again through XTEST afterwards. The keyboard as a whole is
/// never grabbed: some toolkits take that for a loss of the focus.
class KeyboardHold {
 public:
  /// `display` is used by this object alone; `posted` outlives it.
  KeyboardHold(XDisplay display, PostedKeys& posted);
  KeyboardHold(const KeyboardHold&) = delete;
  KeyboardHold& operator=(const KeyboardHold&) = delete;
  /// Leaves no key down.
  ~KeyboardHold();

  /// Whether another program has the keyboard to itself: a screen lock, a password prompt, an open
  /// menu. What is typed then is nobody's business.
  [[nodiscard]] bool isKeyboardTaken() const;

  /// Keyboards were plugged in or out: what was held down on one of them is released.
  void noteKeyboardsChanged();

  /// Holds the hardware's keys back until as many calls of `giveBack` have followed. With Slow Keys
  /// or Bounce Keys on they go on to the application: nobody types fast then, and the keys would
  /// have to pass these filters a second time.
  void holdBack();
  /// Types them into `window`. When another has got the focus meanwhile they are lost: they were
  /// not meant for that one.
  void giveBack(std::uint64_t window);

  /// Ends the automatic repeat of a key that is down: the X server goes on with it meanwhile.
  void endRepeat(std::uint32_t scanCode);

  /// The hardware has released a key, which may still be down for XTEST.
  void noteRelease(std::uint32_t scanCode);

 private:
  struct HeldKey {
    std::uint32_t scanCode = 0;
    bool isDown = true;
    double timestamp = 0;  ///< seconds
  };

  void releaseAll();
  void reloadKeyboards();
  /// Ends the grabs of the keyboards that are enabled: a server that is asked to end that of a
  /// disabled one crashes. To be called while the server is grabbed, so that none is disabled
  /// meanwhile.
  void ungrab();
  /// A keyboard that was disabled while it was held back is still grabbed when it comes back.
  void ungrabReenabled();
  [[nodiscard]] std::deque<HeldKey> takeHeldKeys();
  void typeHeldKeys(bool isSameWindow);
  static void dropTyping(std::deque<HeldKey>& keys);
  void post(const PostedKeys::Key& key);

  XDisplay display_;
  PostedKeys& posted_;
  int inputOpcode_ = 0;
  int depth_ = 0;
  std::vector<int> keyboards_;  ///< device ids
  std::vector<int> grabbed_;  ///< those of them that are held back, or were when they were disabled
  unsigned long focus_ = 0;   ///< what had the keyboard focus when that began
  std::set<std::uint32_t> stillDown_;  ///< given back, and not released by the participant yet
};

}  // namespace mirvane
