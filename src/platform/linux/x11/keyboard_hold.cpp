#include "platform/linux/x11/keyboard_hold.h"

#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/linux/key_identity.h"
#include "platform/linux/x11/desktop_window.h"
#include "platform/linux/x11/key_controls.h"
#include "platform/linux/x11/keyboard_devices.h"
#include "platform/linux/x11/server_clock.h"

namespace mirvane {
namespace {

Window inputFocus(Display* display) {
  Window focus = None;
  int revertTo = 0;
  XGetInputFocus(display, &focus, &revertTo);
  return focus;
}

}  // namespace

KeyboardHold::KeyboardHold(XDisplay display, PostedKeys& posted)
    : display_(std::move(display)), posted_(posted) {
  int event = 0, error = 0;
  XQueryExtension(display_.get(), "XInputExtension", &inputOpcode_, &event, &error);
  reloadKeyboards();
}

KeyboardHold::~KeyboardHold() {
  releaseAll();
}

void KeyboardHold::noteKeyboardsChanged() {
  // Nobody tells of the release of a key whose keyboard is gone.
  releaseAll();
  ungrabReenabled();
  reloadKeyboards();
}

void KeyboardHold::releaseAll() {
  for (const auto scanCode : std::exchange(stillDown_, {})) endRepeat(scanCode);
}

void KeyboardHold::reloadKeyboards() {
  if (depth_ > 0) return;
  keyboards_ = hardwareKeyboards(display_.get());
}

bool KeyboardHold::isKeyboardTaken() const {
  // A grab for a time to come is never made, but the server looks for other grabs first.
  constexpr double oneHour = 3'600'000;  // ms
  const auto later = static_cast<Time>(uptimeMilliseconds() + oneHour);
  const int status = XGrabKeyboard(display_.get(), DefaultRootWindow(display_.get()), False,
                                   GrabModeAsync, GrabModeAsync, later & 0xFFFFFFFF);
  // A server whose clock is far ahead of ours makes the grab after all.
  if (status == GrabSuccess) XUngrabKeyboard(display_.get(), CurrentTime);
  return status == AlreadyGrabbed;
}

void KeyboardHold::holdBack() {
  if (depth_++ > 0) return;
  const auto controls = readKeyControls(display_.get());
  if (controls.isSlowKeysOn || controls.isBounceKeysOn) return;
  std::array<unsigned char, XIMaskLen(XI_LASTEVENT)> bits{};
  XISetMask(bits.data(), XI_KeyPress);
  XISetMask(bits.data(), XI_KeyRelease);
  for (const int keyboard : keyboards_) {
    XIEventMask mask{keyboard, static_cast<int>(bits.size()), bits.data()};
    const int status =
        XIGrabDevice(display_.get(), keyboard, DefaultRootWindow(display_.get()), CurrentTime, None,
                     XIGrabModeAsync, XIGrabModeAsync, False, &mask);
    if (status == GrabSuccess) grabbed_.push_back(keyboard);
  }
  focus_ = inputFocus(display_.get());
}

void KeyboardHold::giveBack(std::uint64_t window) {
  if (depth_ == 0 || --depth_ > 0) return;
  if (grabbed_.empty()) return;
  // Nobody can move the focus between the look at it and the last key.
  XGrabServer(display_.get());
  const bool isSameWindow =
      inputFocus(display_.get()) == focus_ || isFocused(display_.get(), window);
  typeHeldKeys(isSameWindow);
  ungrab();
  // What came between the last look and the end of the grab: nothing may take long there, as the
  // keys that follow overtake these.
  typeHeldKeys(isSameWindow);
  XUngrabServer(display_.get());
  XFlush(display_.get());
  reloadKeyboards();
}

void KeyboardHold::ungrab() {
  // A keyboard that is grabbed floats: it is no slave of the master meanwhile.
  const auto enabled = enabledDevices(display_.get());
  std::erase_if(grabbed_, [&](int keyboard) {
    if (std::find(enabled.begin(), enabled.end(), keyboard) == enabled.end()) return false;
    XIUngrabDevice(display_.get(), keyboard, CurrentTime);
    return true;
  });
}

void KeyboardHold::ungrabReenabled() {
  if (depth_ > 0 || grabbed_.empty()) return;
  XGrabServer(display_.get());
  ungrab();
  // Its keys have gone to the application as well.
  (void)takeHeldKeys();
  XUngrabServer(display_.get());
  XFlush(display_.get());
}

void KeyboardHold::dropTyping(std::deque<HeldKey>& keys) {
  std::set<std::uint32_t> dropped;
  std::erase_if(keys, [&](const HeldKey& key) {
    // Modifiers type nothing, and may still be held when the next key comes.
    if (isModifierKeyCode(virtualKeyCode(key.scanCode))) return false;
    if (!key.isDown) return dropped.erase(key.scanCode) > 0;
    dropped.insert(key.scanCode);
    return true;
  });
}

std::deque<KeyboardHold::HeldKey> KeyboardHold::takeHeldKeys() {
  std::deque<HeldKey> keys;
  XSync(display_.get(), False);
  while (XPending(display_.get()) > 0) {
    XEvent event;
    XNextEvent(display_.get(), &event);
    const bool isInput = event.type == GenericEvent && event.xcookie.extension == inputOpcode_;
    if (!isInput || XGetEventData(display_.get(), &event.xcookie) == 0) continue;
    const auto& key = *static_cast<const XIDeviceEvent*>(event.xcookie.data);
    if ((key.flags & XIKeyRepeat) == 0) {
      keys.push_back({static_cast<std::uint32_t>(key.detail), key.evtype == XI_KeyPress,
                      uptimeOf(key.time) / millisecondsPerSecond});
    }
    XFreeEventData(display_.get(), &event.xcookie);
  }
  return keys;
}

void KeyboardHold::typeHeldKeys(bool isSameWindow) {
  auto keys = takeHeldKeys();
  if (!isSameWindow) dropTyping(keys);
  for (const auto& key : keys) {
    post({key.scanCode, key.isDown, PostedKeys::Origin::user, key.timestamp});
    if (key.isDown) {
      stillDown_.insert(key.scanCode);
    } else {
      stillDown_.erase(key.scanCode);
    }
  }
}

void KeyboardHold::endRepeat(std::uint32_t scanCode) {
  post({scanCode, false, PostedKeys::Origin::silent, 0});
  XFlush(display_.get());
}

void KeyboardHold::noteRelease(std::uint32_t scanCode) {
  // The server takes a key to be down while one of its keyboards says so.
  if (stillDown_.erase(scanCode) > 0) endRepeat(scanCode);
}

void KeyboardHold::post(const PostedKeys::Key& key) {
  posted_.expect(key);
  XTestFakeKeyEvent(display_.get(), key.scanCode, key.isDown ? True : False, CurrentTime);
}

}  // namespace mirvane
