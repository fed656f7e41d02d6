#include "analyse/typed_session.h"

#include <string_view>

#include "text/scalars.h"

namespace mirvane {
namespace {

bool isControl(char32_t scalar) {
  return scalar < 0x20 || (scalar >= 0x7F && scalar < 0xA0);
}

/// What function and arrow keys type where they type anything.
bool isFunctionKey(char32_t scalar) {
  return scalar >= 0xF700 && scalar <= 0xF8FF;
}

}  // namespace

std::optional<TypedKey> keyOfCharacter(std::string_view character) {
  if (character == "\x7f" || character == "\b") {
    return TypedKey{.effect = TypedKey::Effect::erases, .text = std::string(character)};
  }
  if (character == "\r" || character == "\n" || character == "\r\n") return TypedKey{.text = "\n"};
  const auto scalar = text::firstScalar(character);
  if (character.empty() || isControl(scalar) || isFunctionKey(scalar)) return std::nullopt;
  return TypedKey{.text = std::string(character)};
}

}  // namespace mirvane
