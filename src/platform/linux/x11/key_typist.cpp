#include "platform/linux/x11/key_typist.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <xkbcommon/xkbcommon.h>

#include <utility>

#include "platform/linux/x11/desktop_window.h"
#include "platform/linux/x11/key_controls.h"
#include "text/scalars.h"

namespace mirvane {
namespace {

unsigned long symbolFor(char32_t scalar) {
  if (scalar == U'\n' || scalar == U'\r') return XKB_KEY_Return;
  return xkb_utf32_to_keysym(scalar);
}

std::vector<unsigned long> symbolsOf(std::int64_t deleteCount, std::string_view text) {
  std::vector<unsigned long> symbols(static_cast<std::size_t>(deleteCount), XKB_KEY_BackSpace);
  for (std::size_t position = 0; position < text.size();) {
    symbols.push_back(symbolFor(text::nextScalar(text, position)));
  }
  return symbols;
}

/// What is held and locked, and the layout in use.
std::pair<unsigned, unsigned> modifiersAndGroup(Display* display) {
  XkbStateRec state{};
  XkbGetState(display, XkbUseCoreKbd, &state);
  return {state.mods, state.group};
}

}  // namespace

KeyTypist::KeyTypist(XDisplay display, PostedKeys& posted)
    : display_(std::move(display)), posted_(posted), keys_(display_.get()) {}

bool KeyTypist::canType() const {
  constexpr unsigned commands = ControlMask | Mod1Mask | Mod4Mask;
  return (modifiersAndGroup(display_.get()).first & commands) == 0 &&
         !readKeyControls(display_.get()).isSlowKeysOn;
}

bool KeyTypist::type(std::uint64_t window, std::int64_t deleteCount, std::string_view text,
                     const std::function<bool()>& mayType) {
  const auto symbols = symbolsOf(deleteCount, text);
  const auto state = modifiersAndGroup(display_.get());
  // Bounce Keys takes a key that comes twice in a row for one.
  const auto keys = keys_.keysFor(symbols, readKeyControls(display_.get()).isBounceKeysOn);
  if (keys.size() != symbols.size()) return false;
  // Nobody can move the focus, or press a key, between the look at it and the last key.
  XGrabServer(display_.get());
  const bool isUnchanged =
      isFocused(display_.get(), window) && modifiersAndGroup(display_.get()) == state;
  const bool isTyped = isUnchanged && mayType();
  if (isTyped) {
    for (const auto key : keys) {
      post(key, true);
      post(key, false);
    }
  }
  XUngrabServer(display_.get());
  XSync(display_.get(), False);
  return isTyped;
}

void KeyTypist::post(std::uint32_t scanCode, bool isDown) {
  posted_.expect({scanCode, isDown, PostedKeys::Origin::own, 0});
  XTestFakeKeyEvent(display_.get(), scanCode, isDown ? True : False, CurrentTime);
}

}  // namespace mirvane
