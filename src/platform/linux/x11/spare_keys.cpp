#include "platform/linux/x11/spare_keys.h"

#include <X11/Xlib.h>
#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <limits>
#include <thread>
#include <tuple>
#include <utility>

#include "platform/linux/x11/keyboard_description.h"
#include "platform/linux/x11/keyboard_devices.h"

namespace mirvane {
namespace {

/// Some applications ask for the new bindings only when they hear of them, and type the old ones
/// until they are told.
constexpr std::chrono::milliseconds timeToReadBindings{40};

}  // namespace

/// What the keys give at the moment.
class SpareKeys::Keyboard {
 public:
  explicit Keyboard(Display* display)
      : map_(XkbGetMap(display, XkbKeySymsMask | XkbKeyTypesMask, XkbUseCoreKbd)) {
    XkbStateRec state{};
    XkbGetState(display, XkbUseCoreKbd, &state);
    modifiers_ = static_cast<unsigned>(XkbBuildCoreState(state.mods, state.group));
    lastingModifiers_ = static_cast<unsigned>(XkbBuildCoreState(state.locked_mods, state.group));
    XQueryKeymap(display, downKeys_.data());
  }

  /// 0 when no key but `avoided` gives the symbol.
  [[nodiscard]] std::uint32_t keyFor(unsigned long symbol, std::uint32_t avoided) const {
    const auto keys = keysThat(
        [&](std::uint32_t key) { return key != avoided && !isDown(key) && gives(key, symbol); });
    return keys.empty() ? 0 : keys.front();
  }

  /// Those that may be bound for a text of these symbols: a key that gives one of them is needed
  /// for that.
  [[nodiscard]] std::vector<std::uint32_t> sparesFor(
      const std::vector<unsigned long>& symbols) const {
    return keysThat([&](std::uint32_t key) {
      if (isUnused(key)) return true;
      return isBoundByUs(key) &&
             std::find(symbols.begin(), symbols.end(), symbolOf(key, modifiers_)) == symbols.end();
    });
  }

  [[nodiscard]] bool isUnused(std::uint32_t key) const {
    const auto code = static_cast<KeyCode>(key);
    const KeySym* const symbols = XkbKeySymsPtr(map_, code);
    const auto count = XkbKeyNumSyms(map_, code);
    return std::all_of(symbols, symbols + count, [](KeySym symbol) { return symbol == NoSymbol; });
  }

  /// No layout has such keys: an alphabetic one that gives the same in both cases.
  [[nodiscard]] bool isBoundByUs(std::uint32_t key) const {
    const auto code = static_cast<KeyCode>(key);
    return map_ != nullptr && XkbKeyNumGroups(map_, code) == 1 &&
           XkbKeyKeyTypeIndex(map_, code, 0) == XkbAlphabeticIndex &&
           XkbKeySym(map_, code, 0) == XkbKeySym(map_, code, 1);
  }

 private:
  template <typename Condition>
  [[nodiscard]] std::vector<std::uint32_t> keysThat(Condition condition) const {
    std::vector<std::uint32_t> keys;
    if (map_ == nullptr) return keys;
    for (std::uint32_t key = map_->min_key_code; key <= map_->max_key_code; ++key) {
      if (condition(key)) keys.push_back(key);
    }
    return keys;
  }

  /// The server ignores the press of a key that is down already.
  [[nodiscard]] bool isDown(std::uint32_t key) const {
    constexpr std::uint32_t bits = 8;
    return (static_cast<unsigned char>(downKeys_.at(key / bits)) & (1U << (key % bits))) != 0;
  }

  /// Whatever is held: some applications ask late, when they read the layout anew, which modifiers
  /// are down.
  [[nodiscard]] bool gives(std::uint32_t key, unsigned long symbol) const {
    return symbolOf(key, modifiers_) == symbol && symbolOf(key, lastingModifiers_) == symbol;
  }

  [[nodiscard]] unsigned long symbolOf(std::uint32_t key, unsigned modifiers) const {
    unsigned consumed = 0;
    KeySym symbol = NoSymbol;
    XkbTranslateKeyCode(map_.get(), static_cast<KeyCode>(key), modifiers, &consumed, &symbol);
    // Applications apply a Caps Lock or Shift that the key itself knows nothing of.
    const bool isLeftOver = (modifiers & ~consumed & (ShiftMask | LockMask)) != 0;
    const bool hasCases = xkb_keysym_to_upper(static_cast<xkb_keysym_t>(symbol)) != symbol;
    return isLeftOver && hasCases ? NoSymbol : symbol;
  }

  KeyboardDescription map_;
  unsigned modifiers_ = 0;
  unsigned lastingModifiers_ = 0;  ///< without what is held down
  std::array<char, 32> downKeys_{};
};

SpareKeys::~SpareKeys() {
  // Not those to which another layout has given a meaning of its own meanwhile.
  const Keyboard keyboard(display_);
  std::vector<Binding> none;
  for (const auto& [key, lastUse] : lastUses_) {
    if (keyboard.isBoundByUs(key)) none.push_back({key, NoSymbol});
  }
  bind(none);
}

std::vector<std::uint32_t> SpareKeys::sparesFor(const Keyboard& keyboard,
                                                const std::vector<unsigned long>& symbols) const {
  auto spares = keyboard.sparesFor(symbols);
  // Those never used come first, those used longest ago next: an application may still have to read
  // what a key of a moment ago meant.
  std::sort(spares.begin(), spares.end(), [&](std::uint32_t a, std::uint32_t b) {
    const auto age = [&](std::uint32_t key) {
      const auto used = lastUses_.find(key);
      return std::tuple(!keyboard.isUnused(key), used == lastUses_.end() ? 0 : used->second, key);
    };
    return age(a) < age(b);
  });
  return spares;
}

std::vector<std::uint32_t> SpareKeys::keysFor(const std::vector<unsigned long>& symbols,
                                              bool consecutiveDiffer) {
  const Keyboard keyboard(display_);
  const auto spares = sparesFor(keyboard, symbols);
  std::vector<Binding> bound;
  std::vector<std::uint32_t> keys;
  for (const auto symbol : symbols) {
    const auto avoided = consecutiveDiffer && !keys.empty() ? keys.back() : 0;
    const auto known = std::find_if(bound.begin(), bound.end(), [&](const auto& binding) {
      return binding.symbol == symbol && binding.key != avoided;
    });
    auto key = known != bound.end() ? known->key : keyboard.keyFor(symbol, avoided);
    if (key == 0 && bound.size() < spares.size()) {
      key = spares[bound.size()];
      bound.push_back({key, symbol});
    }
    if (key == 0) return {};
    keys.push_back(key);
  }
  for (const auto& binding : bound) lastUses_[binding.key] = 0;
  for (const auto key : keys) {
    if (const auto used = lastUses_.find(key); used != lastUses_.end()) used->second = ++uses_;
  }
  if (!bound.empty()) {
    bind(bound);
    std::this_thread::sleep_for(timeToReadBindings);
  }
  return keys;
}

void SpareKeys::bind(const std::vector<Binding>& bindings) {
  if (bindings.empty()) return;
  // The keys between them are written as they are, which nobody is to change meanwhile.
  XGrabServer(display_);
  bindOn(XkbUseCoreKbd, bindings);
  // A keyboard whose keys are held back is apart from the core keyboard, and would bring its own
  // map along when it comes back.
  for (const int keyboard : allKeyboards(display_)) {
    bindOn(static_cast<unsigned>(keyboard), bindings);
  }
  XUngrabServer(display_);
  XSync(display_, False);
}

void SpareKeys::bindOn(unsigned device, const std::vector<Binding>& bindings) {
  const KeyboardDescription map(XkbGetMap(display_, XkbKeySymsMask | XkbKeyTypesMask, device));
  if (map == nullptr) return;
  // A type that knows of Shift and Caps Lock and gives the same symbol for all: without one,
  // applications would apply them by themselves.
  int type = XkbAlphabeticIndex;
  std::uint32_t first = std::numeric_limits<KeyCode>::max(), last = 0;
  for (const auto& [key, symbol] : bindings) {
    if (XkbChangeTypesOfKey(map.get(), static_cast<int>(key), 1, XkbGroup1Mask, &type, nullptr) !=
        Success) {
      continue;
    }
    KeySym* const symbols = XkbKeySymsPtr(map.get(), key);
    symbols[0] = symbols[1] = symbol;
    first = std::min(first, key);
    last = std::max(last, key);
  }
  if (first <= last) {
    XkbMapChangesRec changes{};
    changes.changed = XkbKeySymsMask;
    changes.first_key_sym = static_cast<KeyCode>(first);
    changes.num_key_syms = static_cast<unsigned char>(last - first + 1);
    XkbChangeMap(display_, map.get(), &changes);
  }
}

}  // namespace mirvane
