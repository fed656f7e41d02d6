#pragma once

#include <QKeyEvent>
#include <cstdint>

namespace mirvane {

/// A key event of our own making, which carries its virtual key code and who sent it.
class SynthesizedKeyEvent : public QKeyEvent {
 public:
  SynthesizedKeyEvent(Type type, int key, const QString& text, std::uint16_t virtualKey,
                      std::uint64_t modifierFlags, std::int64_t userData)
      : QKeyEvent(type, key, Qt::NoModifier, text),
        virtualKey_(virtualKey),
        modifierFlags_(modifierFlags),
        userData_(userData) {}

  [[nodiscard]] std::uint16_t virtualKey() const { return virtualKey_; }
  [[nodiscard]] std::uint64_t modifierFlags() const { return modifierFlags_; }
  [[nodiscard]] std::int64_t userData() const { return userData_; }

 private:
  std::uint16_t virtualKey_;
  std::uint64_t modifierFlags_;
  std::int64_t userData_;
};

}  // namespace mirvane
