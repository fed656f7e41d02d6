#include "platform/linux/x11/key_typist.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XKBgeom.h>
#include <X11/extensions/XTest.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>
#include <tuple>

#include "platform/linux/x11/desktop_window.h"
#include "platform/linux/x11/key_controls.h"
#include "text/scalars.h"

namespace mirvane {
namespace {

constexpr unsigned long backspace = 0xFF08;
constexpr unsigned long returnSymbol = 0xFF0D;
unsigned long symbolFor(char32_t scalar) {
  if (scalar == U'\n' || scalar == U'\r') return returnSymbol;
  return xkb_utf32_to_keysym(scalar);
}

/// Some applications ask for the new bindings only when they hear of them, and type the old ones
/// until they are told.
constexpr std::chrono::milliseconds timeToReadBindings{40};

std::vector<unsigned long> symbolsOf(std::int64_t deleteCount, std::string_view text) {
  std::vector<unsigned long> symbols(static_cast<std::size_t>(deleteCount), backspace);
  for (std::size_t position = 0; position < text.size();) {
    symbols.push_back(symbolFor(text::nextScalar(text, position)));
  }
  return symbols;
}

/// What the keys give at the moment.
class CurrentKeys {
 public:
  explicit CurrentKeys(Display* display)
      : map_(XkbGetMap(display, XkbKeySymsMask | XkbKeyTypesMask, XkbUseCoreKbd)) {
    XkbStateRec state{};
    XkbGetState(display, XkbUseCoreKbd, &state);
    modifiers_ = XkbBuildCoreState(state.mods, state.group);
    XQueryKeymap(display, downKeys_.data());
  }
  CurrentKeys(const CurrentKeys&) = delete;
  CurrentKeys& operator=(const CurrentKeys&) = delete;
  ~CurrentKeys() {
    if (map_ != nullptr) XkbFreeKeyboard(map_, XkbAllComponentsMask, True);
  }

  /// 0 when no key but `avoided` gives the symbol.
  [[nodiscard]] std::uint32_t keyFor(unsigned long symbol, std::uint32_t avoided) const {
    if (map_ == nullptr) return 0;
    for (std::uint32_t key = map_->min_key_code; key <= map_->max_key_code; ++key) {
      if (key != avoided && !isDown(key) && symbolOf(key) == symbol) return key;
    }
    return 0;
  }

 private:
  /// The server ignores the press of a key that is down already.
  [[nodiscard]] bool isDown(std::uint32_t key) const {
    constexpr std::uint32_t bits = 8;
    return (static_cast<unsigned char>(downKeys_.at(key / bits)) & (1U << (key % bits))) != 0;
  }

  [[nodiscard]] unsigned long symbolOf(std::uint32_t key) const {
    unsigned consumed = 0;
    KeySym symbol = NoSymbol;
    XkbTranslateKeyCode(map_, static_cast<KeyCode>(key), modifiers_, &consumed, &symbol);
    // Applications apply a Caps Lock or Shift that the key itself knows nothing of.
    const bool isLeftOver = (modifiers_ & ~consumed & (ShiftMask | LockMask)) != 0;
    return isLeftOver && consumed == 0 &&
                   xkb_keysym_to_upper(static_cast<xkb_keysym_t>(symbol)) != symbol
               ? NoSymbol
               : symbol;
  }

  XkbDescPtr map_;
  unsigned modifiers_ = 0;
  std::array<char, 32> downKeys_{};
};

}  // namespace

KeyTypist::KeyTypist(XDisplay display, PostedKeys& posted)
    : display_(std::move(display)), posted_(posted) {
  findUnusedKeys();
  bindEnglish();
}

void KeyTypist::bindEnglish() {
  // Those that are held down most: what ends a word, and the last letters of words.
  constexpr std::string_view characters = " .,etdsnrylohaig";
  constexpr std::size_t leftForOthers = 8;
  const auto symbols = symbolsOf(1, characters);
  const auto count =
      std::min(symbols.size(), bindings_.size() - std::min(bindings_.size(), leftForOthers));
  for (std::size_t i = 0; i < count; ++i) bind(bindings_[i], symbols[i]);
  XSync(display_.get(), False);
  hasNewBindings_ = false;
}

void KeyTypist::findUnusedKeys() {
  int first = 0, last = 0, symbolsPerKey = 0;
  XDisplayKeycodes(display_.get(), &first, &last);
  KeySym* const symbols = XGetKeyboardMapping(display_.get(), static_cast<KeyCode>(first),
                                              last - first + 1, &symbolsPerKey);
  if (symbols == nullptr) return;
  for (int key = 0; key <= last - first; ++key) {
    const KeySym* const begin = symbols + static_cast<std::ptrdiff_t>(key) * symbolsPerKey;
    const bool isUnused =
        std::all_of(begin, begin + symbolsPerKey, [](KeySym symbol) { return symbol == NoSymbol; });
    if (isUnused) bindings_.push_back({static_cast<std::uint32_t>(first + key), 0, 0});
  }
  XFree(symbols);
}

bool KeyTypist::canType() const {
  XkbStateRec state{};
  XkbGetState(display_.get(), XkbUseCoreKbd, &state);
  constexpr unsigned commands = ControlMask | Mod1Mask | Mod4Mask;
  return bindings_.size() > 1 && (state.mods & commands) == 0;
}

bool KeyTypist::isFocused(std::uint64_t window) const {
  const auto focused = focusedWindow(display_.get());
  return focused && focused->id == window;
}

bool KeyTypist::type(std::uint64_t window, std::int64_t deleteCount, std::string_view text,
                     std::int64_t userData) {
  const auto controls = readKeyControls(display_.get());
  const auto keys = keysFor(symbolsOf(deleteCount, text), controls.isBounceKeysOn);
  if (!controls.isSlowKeysOn) return typeAtOnce(window, keys, userData);
  return typeSlowly(window, keys, userData, controls.slowKeysDelay + slowKeysMargin);
}

bool KeyTypist::typeAtOnce(std::uint64_t window, const std::vector<std::uint32_t>& keys,
                           std::int64_t userData) {
  // Nobody can move the focus between the look at it and the last key.
  XGrabServer(display_.get());
  const bool mayType = isFocused(window);
  for (const auto key : keys) {
    if (!mayType) break;
    post(key, true, userData);
    post(key, false, userData);
  }
  XUngrabServer(display_.get());
  XSync(display_.get(), False);
  return mayType;
}

bool KeyTypist::typeSlowly(std::uint64_t window, const std::vector<std::uint32_t>& keys,
                           std::int64_t userData, double holdMilliseconds) {
  for (const auto key : keys) {
    if (!isFocused(window)) return false;
    post(key, true, userData);
    XSync(display_.get(), False);
    std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(holdMilliseconds));
    post(key, false, userData);
    XSync(display_.get(), False);
  }
  return true;
}

std::vector<std::uint32_t> KeyTypist::keysFor(const std::vector<unsigned long>& symbols,
                                              bool consecutiveDiffer) {
  const CurrentKeys current(display_.get());
  std::vector<std::uint32_t> keys;
  keys.reserve(symbols.size());
  for (const auto symbol : symbols) {
    const auto avoided = consecutiveDiffer && !keys.empty() ? keys.back() : 0;
    const auto key = current.keyFor(symbol, avoided);
    keys.push_back(key != 0 ? key : spareKeyFor(symbol, avoided));
  }
  if (hasNewBindings_) {
    XSync(display_.get(), False);
    std::this_thread::sleep_for(timeToReadBindings);
  }
  hasNewBindings_ = false;
  return keys;
}

std::uint32_t KeyTypist::spareKeyFor(unsigned long symbol, std::uint32_t avoided) {
  const auto mayServe = [&](const Binding& binding) { return binding.scanCode != avoided; };
  auto found = std::find_if(bindings_.begin(), bindings_.end(), [&](const Binding& binding) {
    return binding.symbol == symbol && mayServe(binding);
  });
  if (found == bindings_.end()) {
    // Those never used come first, those used longest ago next: an application may still have to
    // read what a key of a moment ago meant.
    const auto age = [&](const Binding& binding) {
      return std::tuple(!mayServe(binding), binding.symbol != 0, binding.lastUse);
    };
    found = std::min_element(bindings_.begin(), bindings_.end(),
                             [&](const Binding& a, const Binding& b) { return age(a) < age(b); });
    bind(*found, symbol);
  }
  found->lastUse = ++uses_;
  return found->scanCode;
}

void KeyTypist::bind(Binding& binding, unsigned long symbol) {
  binding.symbol = symbol;
  hasNewBindings_ = true;
  XkbDescPtr const map = XkbGetMap(display_.get(), XkbKeySymsMask | XkbKeyTypesMask, XkbUseCoreKbd);
  if (map == nullptr) return;
  // A type that knows of Shift and Caps Lock and gives the same symbol for all: without one,
  // applications would apply them by themselves.
  int type = XkbAlphabeticIndex;
  XkbMapChangesRec changes{};
  const auto key = static_cast<int>(binding.scanCode);
  if (XkbChangeTypesOfKey(map, key, 1, XkbGroup1Mask, &type, &changes) == Success) {
    KeySym* const symbols = XkbKeySymsPtr(map, key);
    symbols[0] = symbols[1] = symbol;
    changes.changed |= XkbKeySymsMask;
    changes.first_key_sym = static_cast<KeyCode>(key);
    changes.num_key_syms = 1;
    XkbChangeMap(display_.get(), map, &changes);
  }
  XkbFreeKeyboard(map, XkbAllComponentsMask, True);
}

void KeyTypist::post(std::uint32_t scanCode, bool isDown, std::int64_t userData) {
  posted_.expect({scanCode, isDown, PostedKeys::Origin::own, 0, userData});
  XTestFakeKeyEvent(display_.get(), scanCode, isDown ? True : False, CurrentTime);
}

}  // namespace mirvane
