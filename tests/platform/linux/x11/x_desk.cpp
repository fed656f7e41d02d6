#include "x_desk.h"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XInput.h>
#include <X11/extensions/XInput2.h>
#include <X11/extensions/XTest.h>
#include <poll.h>
#include <xkbcommon/xkbcommon.h>

#include <cstddef>
#include <cstdlib>
#include <ostream>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <utility>

namespace mirvane {
namespace {

int findHardwareKeyboard(Display* display) {
  int count = 0, found = 0;
  XIDeviceInfo* const devices = XIQueryDevice(display, XIAllDevices, &count);
  for (int i = 0; i < count; ++i) {
    const bool isXtest = std::string_view(devices[i].name).find("XTEST") != std::string_view::npos;
    if (devices[i].use == XISlaveKeyboard && !isXtest) found = devices[i].deviceid;
  }
  XIFreeDeviceInfo(devices);
  return found;
}

void watchRawKeys(Display* display, int device) {
  std::array<unsigned char, XIMaskLen(XI_LASTEVENT)> bits{};
  XISetMask(bits.data(), XI_RawKeyPress);
  XISetMask(bits.data(), XI_RawKeyRelease);
  XIEventMask mask{device, static_cast<int>(bits.size()), bits.data()};
  XISelectEvents(display, DefaultRootWindow(display), &mask, 1);
  XSync(display, False);
}

void apply(KeySym symbol, std::string& text) {
  std::array<char, 8> buffer{};
  if (symbol == XKB_KEY_BackSpace) {
    if (!text.empty()) text.pop_back();
  } else if (symbol == XKB_KEY_Return) {
    text += '\n';
  } else {
    xkb_keysym_to_utf8(static_cast<xkb_keysym_t>(symbol), buffer.data(), buffer.size());
    text += buffer.data();
  }
}

bool awaitEvent(Display* display, std::chrono::steady_clock::time_point end) {
  constexpr int step = 100;  // ms
  pollfd source{ConnectionNumber(display), POLLIN, 0};
  while (XPending(display) == 0) {
    if (std::chrono::steady_clock::now() > end) return false;
    poll(&source, 1, step);
  }
  return true;
}

void setLayout(const std::string& options) {
  if (std::system(("setxkbmap -option '' " + options).c_str()) != 0)
    throw std::runtime_error("no layout");
}

}  // namespace

void PrintTo(const SeenKey& key, std::ostream* out) {
  *out << (key.isDown ? '+' : '-') << key.scanCode << '@' << std::fixed << key.milliseconds;
}

XDesk::XDesk() : hands_(openXDisplay()), witness_(openXDisplay()), application_(openXDisplay()) {
  if (!hands_ || !witness_ || !application_) throw std::runtime_error("no X server");
  keyboard_ = findHardwareKeyboard(hands_.get());
  device_ = XOpenDevice(hands_.get(), static_cast<XID>(keyboard_));
  if (device_ == nullptr) throw std::runtime_error("no keyboard");
  watchRawKeys(witness_.get(), keyboard_);
  // A key that a busy machine releases late is no second one.
  XkbChangeEnabledControls(hands_.get(), XkbUseCoreKbd, XkbRepeatKeysMask, 0);
  for (auto& window : windows_) window = openWindow();
  // Xlib follows the keyboard map from its first use on.
  XKeysymToKeycode(application_.get(), XKB_KEY_a);
  focus(field());
}

XDesk::~XDesk() {
  XCloseDevice(hands_.get(), static_cast<XDevice*>(device_));
}

std::uint64_t XDesk::openWindow() const {
  Display* const display = application_.get();
  XSetWindowAttributes attributes{};
  attributes.override_redirect = True;
  attributes.event_mask = KeyPressMask;
  const Window window =
      XCreateWindow(display, DefaultRootWindow(display), 0, 0, 10, 10, 0, CopyFromParent,
                    InputOutput, CopyFromParent, CWOverrideRedirect | CWEventMask, &attributes);
  std::string name = "field";
  XClassHint hint{name.data(), name.data()};
  XSetClassHint(display, window, &hint);
  XMapWindow(display, window);
  return window;
}

void XDesk::setKeyboardEnabled(bool isEnabled) {
  Display* const display = hands_.get();
  const Atom property = XInternAtom(display, "Device Enabled", False);
  unsigned char value = isEnabled ? 1 : 0;
  XIChangeProperty(display, keyboard_, property, XA_INTEGER, 8, PropModeReplace, &value, 1);
  XSync(display, False);
}

void XDesk::focus(std::uint64_t window) {
  XSetInputFocus(application_.get(), window, RevertToNone, CurrentTime);
  XSync(application_.get(), False);
}

void XDesk::useHardwareLayout(const std::string& name) const {
  setLayout("-device " + std::to_string(keyboard_) + " " + name);
}

void XDesk::useLayout(const std::string& name, unsigned group) {
  setLayout(name);
  XkbLockModifiers(hands_.get(), XkbUseCoreKbd, LockMask, 0);
  XkbLockGroup(hands_.get(), XkbUseCoreKbd, group);
  XSync(hands_.get(), False);
}

void XDesk::filterKeys(bool isSlow, bool isBouncing) {
  constexpr unsigned filters = XkbSlowKeysMask | XkbBounceKeysMask;
  XkbDescPtr const keyboard = XkbAllocKeyboard();
  XkbGetControls(hands_.get(), XkbAllControlsMask, keyboard);
  keyboard->ctrls->slow_keys_delay = 20;
  XkbSetControls(hands_.get(), filters, keyboard);
  XkbFreeKeyboard(keyboard, XkbAllComponentsMask, True);
  XkbChangeEnabledControls(hands_.get(), XkbUseCoreKbd, filters,
                           (isSlow ? XkbSlowKeysMask : 0U) | (isBouncing ? XkbBounceKeysMask : 0U));
  XSync(hands_.get(), False);
}

void XDesk::send(const std::vector<int>& keys) {
  fake(keys, true);
  XSync(hands_.get(), False);
}

void XDesk::sendSoon(const std::vector<int>& keys) {
  fake(keys, true);
  XFlush(hands_.get());
  constexpr std::chrono::milliseconds timeToTakeThem{5};
  std::this_thread::sleep_for(timeToTakeThem);
}

void XDesk::post(const std::vector<int>& keys) {
  fake(keys, false);
  XSync(hands_.get(), False);
}

void XDesk::click(unsigned button) {
  for (const int isDown : {True, False}) {
    XTestFakeButtonEvent(hands_.get(), button, isDown, CurrentTime);
  }
  XSync(hands_.get(), False);
}

void XDesk::fake(const std::vector<int>& keys, bool isHardware) {
  for (const int key : keys) {
    const auto scanCode = static_cast<unsigned>(std::abs(key));
    if (isHardware) {
      XTestFakeDeviceKeyEvent(hands_.get(), static_cast<XDevice*>(device_), scanCode, key > 0,
                              nullptr, 0, CurrentTime);
    } else {
      XTestFakeKeyEvent(hands_.get(), scanCode, key > 0, CurrentTime);
    }
  }
}

std::vector<SeenKey> XDesk::takeSent() {
  std::vector<SeenKey> keys;
  XSync(witness_.get(), False);
  while (XPending(witness_.get()) > 0) {
    XEvent event;
    XNextEvent(witness_.get(), &event);
    if (XGetEventData(witness_.get(), &event.xcookie) == 0) continue;
    const auto& raw = *static_cast<const XIRawEvent*>(event.xcookie.data);
    keys.push_back({static_cast<std::uint32_t>(raw.detail), raw.evtype == XI_RawKeyPress,
                    static_cast<double>(raw.time)});
    XFreeEventData(witness_.get(), &event.xcookie);
  }
  return keys;
}

KeyboardState XDesk::state() const {
  KeyboardState state;
  XkbStateRec xkb{};
  XkbGetState(hands_.get(), XkbUseCoreKbd, &xkb);
  state.modifiers = xkb.mods;
  state.group = xkb.group;
  XQueryKeymap(hands_.get(), state.downKeys.data());
  return state;
}

std::vector<unsigned long> XDesk::keyboardMap() const {
  int first = 0, last = 0, symbolsOfKey = 0;
  XDisplayKeycodes(hands_.get(), &first, &last);
  const int keys = last - first + 1;
  KeySym* const symbols =
      XGetKeyboardMapping(hands_.get(), static_cast<KeyCode>(first), keys, &symbolsOfKey);
  std::vector<unsigned long> map(symbols, symbols + std::ptrdiff_t{keys} * symbolsOfKey);
  XFree(symbols);
  return map;
}

void XDesk::grabKeyboard(bool isGrabbed) {
  Display* const display = hands_.get();
  if (isGrabbed) {
    XGrabKeyboard(display, DefaultRootWindow(display), False, GrabModeAsync, GrabModeAsync,
                  CurrentTime);
  } else {
    XUngrabKeyboard(display, CurrentTime);
  }
  XSync(display, False);
}

std::string XDesk::takeText(bool seesModifiers) {
  std::string text;
  post({marker, -marker});
  const auto end = std::chrono::steady_clock::now() + patience;
  while (awaitEvent(application_.get(), end)) {
    XEvent event;
    XNextEvent(application_.get(), &event);
    if (event.type == MappingNotify) XRefreshKeyboardMapping(&event.xmapping);
    if (event.type != KeyPress) continue;
    if (event.xkey.keycode == marker) return text;
    if (!seesModifiers) event.xkey.state = 0;
    std::array<char, 8> unused{};
    KeySym symbol = NoSymbol;
    XLookupString(&event.xkey, unused.data(), static_cast<int>(unused.size()), &symbol, nullptr);
    apply(symbol, text);
  }
  return text + "(and nothing more)";
}

void sync(_XDisplay* display) {
  XSync(display, False);
}

void afterCalls(_XDisplay* display, int count, std::function<void()> action) {
  // Xlib's own functions of this kind carry no data.
  static int callsLeft = 0;
  static std::function<void()> waiting;
  callsLeft = count;
  waiting = std::move(action);
  const auto afterCall = [](Display*) {
    if (--callsLeft == 0) std::exchange(waiting, {})();
    return 0;
  };
  XSetAfterFunction(display, count > 0 ? +afterCall : nullptr);
}

void deliverEvents(_XDisplay* display, KeyboardWatch& watch) {
  XSync(display, False);
  while (XPending(display) > 0) {
    XEvent event;
    XNextEvent(display, &event);
    watch.handle(event);
  }
}

}  // namespace mirvane
