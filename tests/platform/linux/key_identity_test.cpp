#include "platform/linux/key_identity.h"

#include <gtest/gtest.h>

#include <set>

#include "platform/key_codes.h"

namespace mirvane {
namespace {

struct Row {
  quint32 scanCode;
  std::uint16_t keyCode;
};

// Scan codes as the X server reports them for a PC keyboard.
TEST(KeyIdentity, NamesHardwareKeysWhateverTheLayout) {
  constexpr Row rows[] = {
      {9, keycode::escape},
      {10, 18},  // 1
      {14, 23},  // 5
      {15, 22},  // 6
      {19, 29},  // 0
      {22, keycode::deleteKey},
      {23, keycode::tab},
      {24, 12},  // q
      {29, 16},  // y
      {36, keycode::returnKey},
      {38, 0},   // a
      {42, 5},   // g
      {43, 4},   // h
      {48, 39},  // '
      {49, 50},  // `
      {50, keycode::shift},
      {52, 6},   // z
      {58, 46},  // m
      {62, keycode::rightShift},
      {64, keycode::option},
      {65, keycode::space},
      {66, keycode::capsLock},
      {104, keycode::keypadEnter},
      {105, keycode::rightControl},
      {108, keycode::rightOption},
      {110, keycode::home},
      {111, keycode::upArrow},
      {113, keycode::leftArrow},
      {116, keycode::downArrow},
      {117, keycode::pageDown},
      {119, keycode::forwardDelete},
      {133, keycode::command},
      {134, keycode::rightCommand},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(virtualKeyCode(row.scanCode), row.keyCode) << "scan code " << row.scanCode;
  }
}

TEST(KeyIdentity, LeavesUnknownKeysWithoutACode) {
  for (const quint32 scanCode : {0U, 7U, 8U, 255U, 100000U}) {
    EXPECT_EQ(virtualKeyCode(scanCode), unknownKeyCode) << scanCode;
  }
}

TEST(KeyIdentity, GivesEachKeyOneCode) {
  std::set<std::uint16_t> seen;
  for (quint32 scanCode = 0; scanCode < 256; ++scanCode) {
    const auto code = virtualKeyCode(scanCode);
    if (code == unknownKeyCode) continue;
    EXPECT_TRUE(seen.insert(code).second) << scanCode;
  }
  EXPECT_GT(seen.size(), 100U);
}

}  // namespace
}  // namespace mirvane
