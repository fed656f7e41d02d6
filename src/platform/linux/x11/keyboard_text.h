#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/linux/x11/x_display.h"

struct xkb_compose_state;
struct xkb_context;
struct xkb_keymap;
struct xkb_state;

namespace mirvane {

/// What the keys of the X keyboard type: its layout, modifiers and compose sequences, followed
/// through XKB events of the display given. No key has a text when the server's layout cannot be
/// read.
class KeyboardText {
 public:
  /// `display` outlives this object.
  explicit KeyboardText(_XDisplay* display);
  ~KeyboardText();
  KeyboardText(const KeyboardText&) = delete;
  KeyboardText& operator=(const KeyboardText&) = delete;

  /// The layout was changed: it is read anew before the next press.
  void invalidate() { isStale_ = true; }

  /// The modifiers and layout group as an XKB state event gives them.
  void update(std::uint32_t baseMods, std::uint32_t latchedMods, std::uint32_t lockedMods,
              int baseGroup, int latchedGroup, int lockedGroup);

  /// The text a press types with the modifiers of the moment; absent for a key without text and in
  /// the middle of a compose sequence, whose last key has all its text. Backspace types U+007F.
  [[nodiscard]] std::optional<std::string> press(std::uint32_t scanCode);

  /// The same for a repeated press, which takes no part in compose sequences.
  [[nodiscard]] std::optional<std::string> textOf(std::uint32_t scanCode);

  /// Whether a key only changes what others type (Shift, AltGr, a lock, the next layout) or works
  /// the machine (the light of the screen, the volume, the music).
  [[nodiscard]] bool isApartFromTyping(std::uint32_t scanCode) const;

  /// The modifier-flag word of the moment.
  [[nodiscard]] std::uint64_t modifierFlags() const;

 private:
  struct Free {
    void operator()(xkb_context* context) const;
    void operator()(xkb_keymap* keymap) const;
    void operator()(xkb_state* state) const;
    void operator()(xkb_compose_state* state) const;
  };

  void reloadIfStale();
  [[nodiscard]] std::unique_ptr<xkb_compose_state, Free> makeComposeState() const;
  [[nodiscard]] std::string composedText() const;

  _XDisplay* display_;
  bool isStale_ = true;
  std::unique_ptr<xkb_context, Free> context_;
  std::unique_ptr<xkb_compose_state, Free> compose_;
  std::unique_ptr<xkb_keymap, Free> keymap_;
  std::unique_ptr<xkb_state, Free> state_;
};

}  // namespace mirvane
