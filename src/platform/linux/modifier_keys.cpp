#include "platform/linux/modifier_keys.h"

#include "platform/key_codes.h"
#include "platform/linux/key_identity.h"

namespace mirvane {
namespace {

/// X11's latched Caps Lock in the native modifier state.
constexpr quint32 nativeLockMask = 1U << 1;

std::uint64_t flagsOf(Qt::KeyboardModifiers modifiers) {
  std::uint64_t flags = 0;
  if (modifiers.testFlag(Qt::ShiftModifier)) flags |= modifier::shift;
  if (modifiers.testFlag(Qt::ControlModifier)) flags |= modifier::control;
  if (modifiers.testFlag(Qt::AltModifier)) flags |= modifier::option;
  if (modifiers.testFlag(Qt::MetaModifier)) flags |= modifier::command;
  return flags;
}

}  // namespace

void ModifierKeys::note(std::uint16_t keyCode, bool isDown) {
  if (modifierBitOf(keyCode) == 0) return;
  if (isDown) {
    held_.insert(keyCode);
  } else {
    held_.erase(keyCode);
  }
}

std::uint64_t ModifierKeys::heldFlags() const {
  std::uint64_t flags = 0;
  for (const auto keyCode : held_) flags |= modifierBitOf(keyCode);
  return flags;
}

std::uint64_t ModifierKeys::flagsAfter(const QKeyEvent& event, std::uint16_t keyCode) const {
  // The desktop's state lags one event behind for the modifier key itself: only this class knows.
  const std::uint64_t reported = flagsOf(event.modifiers()) & ~modifierBitOf(keyCode);
  const bool isLocked = (event.nativeModifiers() & nativeLockMask) != 0;
  return heldFlags() | reported | (isLocked ? modifier::capsLock : 0);
}

}  // namespace mirvane
