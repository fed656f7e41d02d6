#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/linux/x11/posted_keys.h"
#include "platform/linux/x11/x_display.h"

namespace mirvane {

/// Types into whatever has the keyboard focus, through XTEST. A character is typed by the key that
/// gives it just then, with the layout, the held modifiers and Caps Lock as they are, and that
/// nobody is holding down. Where there is none, a key that the layout leaves unused is bound to the
/// character. Bindings stay until others need the keys, and the commonest are made beforehand:
/// applications read them late.
class KeyTypist {
 public:
  /// `display` is used by this object alone; `posted` outlives it.
  KeyTypist(XDisplay display, PostedKeys& posted);

  /// Whether a modifier is held that would make commands of the keys (Control, Alt, Meta), or the
  /// keyboard has no unused keys: then nothing can be typed.
  [[nodiscard]] bool canType() const;

  /// Presses Backspace `deleteCount` times and types `text` while `window` has the focus; returns
  /// when the server has all of it. With Slow Keys on that takes their delay for each key. False
  /// when the focus was elsewhere: nothing goes to another window.
  bool type(std::uint64_t window, std::int64_t deleteCount, std::string_view text,
            std::int64_t userData);

 private:
  struct Binding {
    std::uint32_t scanCode = 0;
    unsigned long symbol = 0;  ///< 0 while unused
    std::uint64_t lastUse = 0;
  };

  void findUnusedKeys();
  void bindEnglish();
  /// The keys that type the symbols, in order. Where `consecutiveDiffer`, no key comes twice in a
  /// row, so that Bounce Keys takes them for different keys.
  [[nodiscard]] std::vector<std::uint32_t> keysFor(const std::vector<unsigned long>& symbols,
                                                   bool consecutiveDiffer);
  [[nodiscard]] std::uint32_t spareKeyFor(unsigned long symbol, std::uint32_t avoided);
  void bind(Binding& binding, unsigned long symbol);
  [[nodiscard]] bool isFocused(std::uint64_t window) const;
  bool typeAtOnce(std::uint64_t window, const std::vector<std::uint32_t>& keys,
                  std::int64_t userData);
  bool typeSlowly(std::uint64_t window, const std::vector<std::uint32_t>& keys,
                  std::int64_t userData, double holdMilliseconds);
  void post(std::uint32_t scanCode, bool isDown, std::int64_t userData);

  XDisplay display_;
  PostedKeys& posted_;
  std::vector<Binding> bindings_;
  std::uint64_t uses_ = 0;
  bool hasNewBindings_ = false;
};

}  // namespace mirvane
