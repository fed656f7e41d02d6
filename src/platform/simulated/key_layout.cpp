#include "platform/simulated/key_layout.h"

#include <algorithm>

#include "platform/key_codes.h"

namespace mirvane::simulated {
namespace {

struct Key {
  char plain;
  char shifted;
  std::uint16_t keyCode;
};

/// The ANSI virtual key codes, which follow the hardware and not the alphabet.
constexpr Key keys[] = {
    {'a', 'A', 0},   {'b', 'B', 11}, {'c', 'C', 8},   {'d', 'D', 2},  {'e', 'E', 14},
    {'f', 'F', 3},   {'g', 'G', 5},  {'h', 'H', 4},   {'i', 'I', 34}, {'j', 'J', 38},
    {'k', 'K', 40},  {'l', 'L', 37}, {'m', 'M', 46},  {'n', 'N', 45}, {'o', 'O', 31},
    {'p', 'P', 35},  {'q', 'Q', 12}, {'r', 'R', 15},  {'s', 'S', 1},  {'t', 'T', 17},
    {'u', 'U', 32},  {'v', 'V', 9},  {'w', 'W', 13},  {'x', 'X', 7},  {'y', 'Y', 16},
    {'z', 'Z', 6},   {'1', '!', 18}, {'2', '@', 19},  {'3', '#', 20}, {'4', '$', 21},
    {'5', '%', 23},  {'6', '^', 22}, {'7', '&', 26},  {'8', '*', 28}, {'9', '(', 25},
    {'0', ')', 29},  {'=', '+', 24}, {'-', '_', 27},  {']', '}', 30}, {'[', '{', 33},
    {'\'', '"', 39}, {';', ':', 41}, {'\\', '|', 42}, {',', '<', 43}, {'/', '?', 44},
    {'.', '>', 47},  {'`', '~', 50},
};

std::optional<KeyStroke> editingStroke(char character) {
  switch (character) {
    case ' ':
      return KeyStroke{keycode::space, " ", 0};
    case '\n':
    case '\r':
      return KeyStroke{keycode::returnKey, "\r", 0};
    case '\t':
      return KeyStroke{keycode::tab, "\t", 0};
    case '\b':
      return KeyStroke{keycode::deleteKey, "\x7f", 0};
    default:
      return std::nullopt;
  }
}

}  // namespace

std::optional<KeyStroke> keyStrokeFor(std::string_view character) {
  if (character == "\r\n") return keyStrokeFor("\n");
  if (character.size() != 1) return std::nullopt;
  if (auto stroke = editingStroke(character[0])) return stroke;
  const auto* const key = std::find_if(std::begin(keys), std::end(keys), [&](const Key& each) {
    return each.plain == character[0] || each.shifted == character[0];
  });
  if (key == std::end(keys)) return std::nullopt;
  const std::uint64_t flags = key->shifted == character[0] ? modifier::shift : 0;
  return KeyStroke{key->keyCode, std::string(character), flags};
}

KeyStroke keyStrokeOrText(std::string_view character) {
  return keyStrokeFor(character).value_or(KeyStroke{keycode::text, std::string(character), 0});
}

}  // namespace mirvane::simulated
