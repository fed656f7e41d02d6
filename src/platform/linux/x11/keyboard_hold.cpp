#include "platform/linux/x11/keyboard_hold.h"

#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace mirvane {
namespace {

constexpr double millisecondsPerSecond = 1000.0;

bool isHardwareKeyboard(const XIDeviceInfo& device) {
  return device.use == XISlaveKeyboard && device.enabled != 0 &&
         std::string_view(device.name).find("XTEST") == std::string_view::npos;
}

}  // namespace

KeyboardHold::KeyboardHold(XDisplay display, PostedKeys& posted)
    : display_(std::move(display)), posted_(posted) {
  int event = 0, error = 0;
  XQueryExtension(display_.get(), "XInputExtension", &inputOpcode_, &event, &error);
}

bool KeyboardHold::freeze() {
  if (isFrozen_) return true;
  const int status = XGrabKeyboard(display_.get(), DefaultRootWindow(display_.get()), False,
                                   GrabModeAsync, GrabModeSync, CurrentTime);
  isFrozen_ = status == GrabSuccess;
  return isFrozen_;
}

void KeyboardHold::thaw() {
  if (!isFrozen_) return;
  XUngrabKeyboard(display_.get(), CurrentTime);
  XFlush(display_.get());
  isFrozen_ = false;
}

std::vector<int> KeyboardHold::hardwareKeyboards() const {
  int count = 0;
  XIDeviceInfo* const devices = XIQueryDevice(display_.get(), XIAllDevices, &count);
  std::vector<int> ids;
  for (int i = 0; i < count; ++i) {
    if (isHardwareKeyboard(devices[i])) ids.push_back(devices[i].deviceid);
  }
  XIFreeDeviceInfo(devices);
  return ids;
}

void KeyboardHold::holdBack() {
  std::array<unsigned char, XIMaskLen(XI_LASTEVENT)> bits{};
  XISetMask(bits.data(), XI_KeyPress);
  XISetMask(bits.data(), XI_KeyRelease);
  for (const int keyboard : hardwareKeyboards()) {
    XIEventMask mask{keyboard, static_cast<int>(bits.size()), bits.data()};
    const int status =
        XIGrabDevice(display_.get(), keyboard, DefaultRootWindow(display_.get()), CurrentTime, None,
                     XIGrabModeAsync, XIGrabModeAsync, False, &mask);
    if (status == GrabSuccess) grabbedKeyboards_.push_back(keyboard);
  }
  if (!isFrozen_) return;
  // Nothing new reaches the frozen queue any more: empty it to here, then open it for XTEST.
  XAllowEvents(display_.get(), AsyncKeyboard, CurrentTime);
  XSync(display_.get(), False);
  takePendingKeys();
  thaw();
}

void KeyboardHold::takePendingKeys() {
  while (XPending(display_.get()) > 0) {
    XEvent event;
    XNextEvent(display_.get(), &event);
    if (event.type == KeyPress || event.type == KeyRelease) {
      const HeldKey key{event.xkey.keycode, event.type == KeyPress,
                        static_cast<double>(event.xkey.time) / millisecondsPerSecond};
      held_.push_back(key);
      announced_.push_back(key);
    } else if (event.type == GenericEvent && event.xcookie.extension == inputOpcode_ &&
               XGetEventData(display_.get(), &event.xcookie) != 0) {
      const auto& key = *static_cast<const XIDeviceEvent*>(event.xcookie.data);
      const bool isRepeat = (key.flags & XIKeyRepeat) != 0;
      if (!isRepeat) {
        held_.push_back({static_cast<std::uint32_t>(key.detail), key.evtype == XI_KeyPress,
                         static_cast<double>(key.time) / millisecondsPerSecond});
      }
      XFreeEventData(display_.get(), &event.xcookie);
    }
  }
}

void KeyboardHold::giveBack() {
  if (grabbedKeyboards_.empty()) return;
  XSync(display_.get(), False);
  takePendingKeys();
  typeHeldKeys();
  for (const int keyboard : grabbedKeyboards_) {
    XIUngrabDevice(display_.get(), keyboard, CurrentTime);
  }
  grabbedKeyboards_.clear();
  // What came between the last look and the end of the grab.
  XSync(display_.get(), False);
  takePendingKeys();
  typeHeldKeys();
}

void KeyboardHold::typeHeldKeys() {
  using Origin = PostedKeys::Origin;
  std::array<char, 32> downKeys{};
  if (!held_.empty()) XQueryKeymap(display_.get(), downKeys.data());
  const auto isDown = [&](std::uint32_t scanCode) {
    return (downKeys.at(scanCode / 8) & (1 << (scanCode % 8))) != 0;
  };
  while (!held_.empty()) {
    const HeldKey key = held_.front();
    held_.pop_front();
    // The server ignores the press of a key that it takes to be down already.
    if (key.isDown && isDown(key.scanCode)) post({key.scanCode, false, Origin::silent, 0});
    post({key.scanCode, key.isDown, Origin::user, key.timestamp});
    const bool isReleased = std::any_of(held_.begin(), held_.end(), [&](const HeldKey& later) {
      return later.scanCode == key.scanCode && !later.isDown;
    });
    // Still held by the participant: the hardware's own release will find it up already.
    if (key.isDown && !isReleased) post({key.scanCode, false, Origin::silent, key.timestamp});
  }
  XFlush(display_.get());
}

void KeyboardHold::post(const PostedKeys::Key& key) {
  posted_.expect(key);
  XTestFakeKeyEvent(display_.get(), key.scanCode, key.isDown ? True : False, CurrentTime);
}

bool KeyboardHold::takesEvent(std::uint32_t scanCode, bool isDown) {
  if (announced_.empty()) return false;
  const HeldKey& next = announced_.front();
  if (next.scanCode != scanCode || next.isDown != isDown) return false;
  announced_.pop_front();
  return true;
}

}  // namespace mirvane
