#include "platform/linux/key_identity.h"

#include <QtCore/qnamespace.h>

#include <array>
#include <utility>

#include "platform/key_codes.h"

namespace mirvane {
namespace {

constexpr quint32 kernelOffset = 8;
constexpr std::uint16_t none = unknownKeyCode;

/// Indexed by the kernel's key code, ten keys to each remark.
constexpr std::array<std::uint16_t, 130> byKernelCode{
    none, 53,   18,   19,   20,
    21,   23,   22,   26,   28,  // Escape, 1 to 8
    25,   29,   27,   24,   51,
    48,   12,   13,   14,   15,  // 9, 0, -, =, Backspace, Tab, q to r
    17,   16,   32,   34,   31,
    35,   33,   30,   36,   59,  // t to p, brackets, Return, Control
    0,    1,    2,    3,    5,
    4,    38,   40,   37,   41,  // a to l, semicolon
    39,   50,   56,   42,   6,
    7,    8,    9,    11,   45,  // ', `, Shift, backslash, z to n
    46,   43,   47,   44,   60,
    67,   58,   49,   57,   122,  // m to /, Shift, Alt, Space, Caps, F1
    120,  99,   118,  96,   97,
    98,   100,  101,  109,  71,  // F2 to F10, Num Lock
    107,  89,   91,   92,   78,
    86,   87,   88,   69,   83,  // Scroll Lock, keypad
    84,   85,   82,   65,   none,
    none, 10,   103,  111,  none,  // keypad, the key beside Shift, F11
    none, none, none, none, none,
    none, 76,   62,   75,   105,  // keypad Enter, right Control, Print
    61,   none, 115,  126,  116,
    123,  124,  119,  125,  121,  // right Alt, Home to Page Down
    114,  117,  none, none, none,
    none, none, 81,   none, 113,  // Insert, Forward Delete, Pause
    none, none, none, none, none,
    55,   54,   110,  none, none,  // left and right Meta, Menu
};

}  // namespace

std::uint16_t virtualKeyCode(quint32 scanCode) {
  if (scanCode < kernelOffset || scanCode - kernelOffset >= byKernelCode.size()) return none;
  return byKernelCode.at(scanCode - kernelOffset);
}

std::uint64_t modifierBitOf(std::uint16_t keyCode) {
  switch (keyCode) {
    case keycode::shift:
    case keycode::rightShift:
      return modifier::shift;
    case keycode::control:
    case keycode::rightControl:
      return modifier::control;
    case keycode::option:
    case keycode::rightOption:
      return modifier::option;
    case keycode::command:
    case keycode::rightCommand:
      return modifier::command;
    default:
      return 0;
  }
}

bool isModifierKeyCode(std::uint16_t keyCode) {
  return keyCode == keycode::capsLock || modifierBitOf(keyCode) != 0;
}

int qtKeyOf(std::uint16_t keyCode) {
  static constexpr std::array<std::pair<std::uint16_t, Qt::Key>, 15> keys{{
      {keycode::returnKey, Qt::Key_Return},
      {keycode::keypadEnter, Qt::Key_Enter},
      {keycode::tab, Qt::Key_Tab},
      {keycode::space, Qt::Key_Space},
      {keycode::deleteKey, Qt::Key_Backspace},
      {keycode::forwardDelete, Qt::Key_Delete},
      {keycode::escape, Qt::Key_Escape},
      {keycode::home, Qt::Key_Home},
      {keycode::end, Qt::Key_End},
      {keycode::pageUp, Qt::Key_PageUp},
      {keycode::pageDown, Qt::Key_PageDown},
      {keycode::leftArrow, Qt::Key_Left},
      {keycode::rightArrow, Qt::Key_Right},
      {keycode::upArrow, Qt::Key_Up},
      {keycode::downArrow, Qt::Key_Down},
  }};
  for (const auto& [code, key] : keys) {
    if (code == keyCode) return key;
  }
  return 0;
}

}  // namespace mirvane
