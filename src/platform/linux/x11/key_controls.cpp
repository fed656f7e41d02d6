#include "platform/linux/x11/key_controls.h"

#include <X11/Xlib.h>
#include <X11/extensions/XKBstr.h>

#include <algorithm>

#include "platform/linux/x11/keyboard_description.h"

namespace mirvane {
namespace {

KeyControls controlsOf(const XkbControlsRec& controls) {
  const auto isOn = [&](unsigned mask) { return (controls.enabled_ctrls & mask) != 0; };
  KeyControls result;
  result.isRepeatOn = isOn(XkbRepeatKeysMask);
  result.repeatDelay = controls.repeat_delay;
  result.repeatInterval = std::max<double>(controls.repeat_interval, 1);
  result.repeatingKeys.assign(std::begin(controls.per_key_repeat),
                              std::end(controls.per_key_repeat));
  result.isSlowKeysOn = isOn(XkbSlowKeysMask);
  result.isBounceKeysOn = isOn(XkbBounceKeysMask);
  result.bounceDelay = controls.debounce_delay;
  return result;
}

}  // namespace

bool KeyControls::repeats(std::uint32_t scanCode) const {
  constexpr std::uint32_t bits = 8;
  return isRepeatOn && scanCode / bits < repeatingKeys.size() &&
         (repeatingKeys[scanCode / bits] & (1U << (scanCode % bits))) != 0;
}

KeyControls readKeyControls(_XDisplay* display) {
  KeyControls result;
  const KeyboardDescription keyboard(XkbAllocKeyboard());
  if (keyboard == nullptr) return result;
  if (XkbGetControls(display, XkbAllControlsMask, keyboard.get()) == Success) {
    result = controlsOf(*keyboard->ctrls);
  }
  return result;
}

}  // namespace mirvane
