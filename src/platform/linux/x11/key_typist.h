#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "platform/linux/x11/posted_keys.h"
#include "platform/linux/x11/spare_keys.h"
#include "platform/linux/x11/x_display.h"

namespace mirvane {

/// Types into whatever has the keyboard focus, through XTEST: any text, whatever the layout and
/// the desktop's keyboard settings.
class KeyTypist {
 public:
  /// `display` is used by this object alone; `posted` outlives it.
  KeyTypist(XDisplay display, PostedKeys& posted);

  /// False while a modifier is held that would make commands of the keys (Control, Alt, Meta), and
  /// with Slow Keys on: a word would take seconds to type, with the participant's keys in its
  /// middle.
  [[nodiscard]] bool canType() const;

  /// Presses Backspace `deleteCount` times and types `text` while `window` has the focus; returns
  /// when the server has all of it. False, and nothing is typed, when the focus was elsewhere, a
  /// character has no key, a modifier was pressed or released meanwhile, or `mayType`, which is
  /// asked when nothing can come in between any more, says no.
  bool type(std::uint64_t window, std::int64_t deleteCount, std::string_view text,
            const std::function<bool()>& mayType);

 private:
  void post(std::uint32_t scanCode, bool isDown);

  XDisplay display_;
  PostedKeys& posted_;
  SpareKeys keys_;
};

}  // namespace mirvane
