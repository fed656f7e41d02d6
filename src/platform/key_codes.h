#pragma once

#include <cstdint>

namespace mirvane {

/// Virtual key codes: one per physical key, whatever the layout. Adapters map the keys of their
/// hardware onto these.
namespace keycode {
inline constexpr std::uint16_t text = 0;  ///< carries synthesized text; also the A key
inline constexpr std::uint16_t returnKey = 36;
inline constexpr std::uint16_t tab = 48;
inline constexpr std::uint16_t space = 49;
inline constexpr std::uint16_t deleteKey = 51;  ///< Backspace
inline constexpr std::uint16_t escape = 53;
inline constexpr std::uint16_t rightCommand = 54;
inline constexpr std::uint16_t command = 55;
inline constexpr std::uint16_t shift = 56;
inline constexpr std::uint16_t capsLock = 57;
inline constexpr std::uint16_t option = 58;
inline constexpr std::uint16_t control = 59;
inline constexpr std::uint16_t rightShift = 60;
inline constexpr std::uint16_t rightOption = 61;
inline constexpr std::uint16_t rightControl = 62;
inline constexpr std::uint16_t keypadEnter = 76;
inline constexpr std::uint16_t home = 115;
inline constexpr std::uint16_t pageUp = 116;
inline constexpr std::uint16_t forwardDelete = 117;
inline constexpr std::uint16_t end = 119;
inline constexpr std::uint16_t pageDown = 121;
inline constexpr std::uint16_t leftArrow = 123;
inline constexpr std::uint16_t rightArrow = 124;
inline constexpr std::uint16_t downArrow = 125;
inline constexpr std::uint16_t upArrow = 126;
}  // namespace keycode

/// Bits of the modifier-flag word that every key event carries.
namespace modifier {
inline constexpr std::uint64_t capsLock = 0x10000;
inline constexpr std::uint64_t shift = 0x20000;
inline constexpr std::uint64_t control = 0x40000;
inline constexpr std::uint64_t option = 0x80000;
inline constexpr std::uint64_t command = 0x100000;
}  // namespace modifier

}  // namespace mirvane
