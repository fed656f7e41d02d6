#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/linux/atspi/accessibility_thread.h"
#include "platform/linux/atspi/text_field.h"
#include "platform/linux/x11/desktop_input.h"
#include "platform/linux/x11/key_typist.h"

namespace mirvane {

/// Replaces text in fields of other applications, by the best way that each of them knows:
/// as editable text; by Backspaces and typing; by selecting and typing. Used on the accessibility
/// thread alone.
class FieldWriter {
 public:
  using Clock = std::chrono::steady_clock;

  FieldWriter(AccessibilityThread& thread, DesktopInput& input, KeyTypist& typist)
      : thread_(thread), input_(input), typist_(typist) {}

  /// Where keys may be typed: nowhere but in this window, and no longer than no key of the
  /// participant has followed the one that led to the replacement.
  struct Place {
    std::uint64_t window = 0;
    KeyHold hold = KeyHold::none;
  };

  struct Replacement {
    TextField::Range range;
    std::u16string replaced;  ///< what the field must hold there, else nothing is written
    std::string text;
  };

  /// False when the field holds its old text afterwards, or does not tell.
  bool replace(const std::shared_ptr<TextField>& field, const Place& place,
               const Replacement& replacement);

  /// Types Backspaces and `text`, and keeps the participant's keys behind them. `mayType` is asked
  /// once no key can come in between any more.
  bool type(const Place& place, std::int64_t deleteCount, std::string_view text,
            const std::function<bool()>& mayType);

 private:
  /// Unchanged as well where it is refused: no other way is to be tried then.
  enum class Outcome { done, unchanged, refused, unknown };

  struct State {
    std::int64_t length = 0;
    std::int64_t caret = 0;
  };
  /// A replacement by keys, up to the caret.
  struct Typed {
    TextField::Range range;
    std::u16string old;
    std::u16string text;
    bool isByBackspaces = true;  ///< else over a selection
  };

  Outcome replaceEditable(const TextField& field, const Replacement& replacement);
  static Outcome takeBackRemainder(const TextField& field, const Replacement& replacement,
                                   const State& before);
  void finishLater(const std::shared_ptr<TextField>& field, const Replacement& replacement,
                   Clock::time_point deadline);
  Outcome replaceByTyping(const TextField& field, const Place& place,
                          const Replacement& replacement);
  [[nodiscard]] static std::optional<Typed> keysFor(const TextField& field,
                                                    const Replacement& replacement);
  bool typeAnew(const Place& place, const Typed& typed, const DesktopInput::TimeLeft& timeLeft);
  bool typeOver(const TextField& field, const Place& place, const Typed& typed,
                const DesktopInput::TimeLeft& timeLeft);
  static bool isShown(const TextField& field, const Typed& typed);
  void takeBackCut(const TextField& field, const Place& place, const Typed& typed,
                   const DesktopInput::TimeLeft& timeLeft);

  AccessibilityThread& thread_;
  DesktopInput& input_;
  KeyTypist& typist_;
};

}  // namespace mirvane
