#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mirvane::simulated {

/// One way to strike a key: which key, with which modifiers, and the text it gives.
struct KeyStroke {
  std::uint16_t keyCode = 0;
  std::optional<std::string> text = {};
  std::uint64_t modifierFlags = 0;

  bool operator==(const KeyStroke&) const = default;
};

/// The stroke that types a character on a US (ANSI) keyboard: capitals and shifted symbols carry
/// the Shift flag and their key's code. "\n" and "\r" are Return, "\t" Tab, "\b" Backspace. Absent
/// when no key types it.
[[nodiscard]] std::optional<KeyStroke> keyStrokeFor(std::string_view character);

/// The same, where a character without a key comes from `keycode::text` with its text, as from an
/// input method.
[[nodiscard]] KeyStroke keyStrokeOrText(std::string_view character);

}  // namespace mirvane::simulated
