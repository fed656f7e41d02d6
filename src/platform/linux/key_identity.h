#pragma once

#include <QtGlobal>
#include <cstdint>

namespace mirvane {

/// What a key without a virtual key code gets.
inline constexpr std::uint16_t unknownKeyCode = 0xFFFF;

/// The virtual key code of a hardware key, whatever the keyboard layout. `scanCode` counts as X11
/// and Wayland do: the kernel's code plus 8 (linux/input-event-codes.h).
[[nodiscard]] std::uint16_t virtualKeyCode(quint32 scanCode);

/// The bit of the modifier-flag word that a modifier key sets while it is held; 0 for other keys
/// and for Caps Lock, which latches instead.
[[nodiscard]] std::uint64_t modifierBitOf(std::uint16_t keyCode);

/// Whether the key reports changes of the modifier flags instead of presses.
[[nodiscard]] bool isModifierKeyCode(std::uint16_t keyCode);

/// The toolkit's name for a virtual key whose effect does not come from text; 0 for the others.
[[nodiscard]] int qtKeyOf(std::uint16_t keyCode);

}  // namespace mirvane
