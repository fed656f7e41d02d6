#include "platform/linux/x11/keyboard_watch.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XKBstr.h>

#include <array>
#include <utility>

#include "platform/linux/x11/key_controls.h"
#include "platform/linux/x11/keyboard_devices.h"
#include "platform/linux/x11/keyboard_layouts.h"
#include "platform/linux/x11/server_clock.h"

namespace mirvane {
KeyboardWatch::KeyboardWatch(_XDisplay* display, PostedKeys& posted, Callbacks callbacks)
    : display_(display), posted_(posted), callbacks_(std::move(callbacks)), text_(display) {
  int event = 0, error = 0, opcode = 0, major = XkbMajorVersion, minor = XkbMinorVersion;
  XQueryExtension(display, "XInputExtension", &inputOpcode_, &event, &error);
  XkbQueryExtension(display, &opcode, &xkbEventBase_, &error, &major, &minor);
  selectEvents();
  reloadControls();
  reloadKeyboards();
}

void KeyboardWatch::selectEvents() {
  std::array<unsigned char, XIMaskLen(XI_LASTEVENT)> bits{};
  XISetMask(bits.data(), XI_RawKeyPress);
  XISetMask(bits.data(), XI_RawKeyRelease);
  XISetMask(bits.data(), XI_RawButtonPress);
  XISetMask(bits.data(), XI_RawTouchBegin);
  XIEventMask raw{XIAllMasterDevices, static_cast<int>(bits.size()), bits.data()};
  XISelectEvents(display_, DefaultRootWindow(display_), &raw, 1);
  bits.fill(0);
  XISetMask(bits.data(), XI_HierarchyChanged);
  XIEventMask hierarchy{XIAllDevices, static_cast<int>(bits.size()), bits.data()};
  XISelectEvents(display_, DefaultRootWindow(display_), &hierarchy, 1);
  const unsigned long xkb = XkbNewKeyboardNotifyMask | XkbMapNotifyMask | XkbStateNotifyMask |
                            XkbControlsNotifyMask | XkbAccessXNotifyMask;
  XkbSelectEvents(display_, XkbUseCoreKbd, static_cast<unsigned>(xkb), static_cast<unsigned>(xkb));
  XFlush(display_);
}

void KeyboardWatch::reloadControls() {
  auto controls = readKeyControls(display_);
  filters_.setSettings({controls.isSlowKeysOn, controls.isBounceKeysOn, controls.bounceDelay});
  const double delay = controls.repeatDelay, interval = controls.repeatInterval;
  repeat_.setSettings({delay, interval, [controls = std::move(controls)](std::uint32_t scanCode) {
                         return controls.repeats(scanCode);
                       }});
}

void KeyboardWatch::reloadKeyboards() {
  const auto keyboards = syntheticKeyboards(display_);
  syntheticKeyboards_ = {keyboards.begin(), keyboards.end()};
}

bool KeyboardWatch::handle(_XEvent& event) {
  if (event.type == xkbEventBase_) return handleXkb(event);
  if (event.type != GenericEvent || event.xcookie.extension != inputOpcode_) return false;
  switch (event.xcookie.evtype) {
    case XI_RawKeyPress:
    case XI_RawKeyRelease:
      handleInput(event);
      return true;
    case XI_HierarchyChanged:
      reloadKeyboards();
      callbacks_.onKeyboardsChanged();
      return true;
    default:
      // Xlib gives the data of an event once: that of the pointer's is left for those who want it.
      return false;
  }
}

void KeyboardWatch::handleInput(_XEvent& event) {
  auto& cookie = event.xcookie;
  if (XGetEventData(display_, &cookie) == 0) return;
  const auto& raw = *static_cast<const XIRawEvent*>(cookie.data);
  handleRaw(raw.sourceid, static_cast<std::uint32_t>(raw.detail), raw.evtype == XI_RawKeyPress,
            uptimeOf(raw.time));
  XFreeEventData(display_, &cookie);
}

bool KeyboardWatch::handleXkb(const _XEvent& event) {
  XkbEvent xkb{};
  xkb.core = event;
  switch (xkb.any.xkb_type) {
    case XkbStateNotify:
      text_.update(xkb.state.base_mods, xkb.state.latched_mods, xkb.state.locked_mods,
                   xkb.state.base_group, xkb.state.latched_group, xkb.state.locked_group);
      break;
    case XkbNewKeyboardNotify:
    case XkbMapNotify:
      text_.invalidate();
      isLayoutShared_ = false;
      break;
    case XkbControlsNotify:
      reloadControls();
      break;
    case XkbAccessXNotify:
      if (xkb.accessx.detail == XkbAXN_SKAccept) {
        const auto scanCode = static_cast<std::uint32_t>(xkb.accessx.keycode);
        if (ownDown_.contains(scanCode)) break;
        filters_.acceptSlowKey(scanCode);
        const auto time = uptimeOf(xkb.accessx.time);
        press({scanCode, true, time, time});
      }
      break;
    default:
      break;
  }
  return true;
}

void KeyboardWatch::handleRaw(int device, std::uint32_t scanCode, bool isDown,
                              double milliseconds) {
  if (syntheticKeyboards_.count(device) > 0) {
    if (const auto own = posted_.take(scanCode, isDown, timePoint(milliseconds))) {
      handlePosted(*own, milliseconds);
      return;
    }
  } else if (isDown) {
    lastHardware_ = device;
  } else {
    callbacks_.onHardwareRelease(scanCode);
  }
  handleKey({scanCode, isDown, milliseconds, milliseconds});
}

void KeyboardWatch::shareLayout() {
  if (!lastHardware_ || isLayoutShared_) return;
  shareLayoutOf(*lastHardware_, display_);
  isLayoutShared_ = true;
}

void KeyboardWatch::handlePosted(const PostedKeys::Key& key, double milliseconds) {
  if (key.origin == PostedKeys::Origin::user) {
    handleKey({key.scanCode, key.isDown, key.timestamp * millisecondsPerSecond, milliseconds});
  } else if (key.isDown) {
    ownDown_.insert(key.scanCode);
  } else {
    ownDown_.erase(key.scanCode);
    if (key.origin == PostedKeys::Origin::own) (void)filters_.release(key.scanCode, milliseconds);
  }
}

void KeyboardWatch::handleKey(const Key& key) {
  if (key.isDown) {
    if (filters_.press(key.scanCode, key.deliveredAt)) press(key);
    return;
  }
  reportDueRepeats(key.deliveredAt);
  repeat_.release(key.scanCode);
  if (filters_.release(key.scanCode, key.deliveredAt)) report(key, text_.textOf(key.scanCode));
}

void KeyboardWatch::press(const Key& key) {
  repeat_.press(key.scanCode, key.deliveredAt);
  report(key, text_.press(key.scanCode));
}

void KeyboardWatch::reportDueRepeats(double now) {
  while (const auto due = repeat_.takeDue(now)) {
    report({due->scanCode, true, due->time, due->time}, text_.textOf(due->scanCode), true);
  }
}

void KeyboardWatch::report(const Key& key, std::optional<std::string> text, bool isRepeat) {
  callbacks_.onKey({key.scanCode, key.isDown, std::move(text), text_.modifierFlags(),
                    key.pressedAt / millisecondsPerSecond, key.deliveredAt / millisecondsPerSecond,
                    isRepeat, text_.isApartFromTyping(key.scanCode)});
}

}  // namespace mirvane
