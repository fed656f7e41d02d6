#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace mirvane {

/// The presses that a held key repeats, which the X server gives to the focused window but not to
/// those who watch the keyboard. One key repeats at a time: the last one pressed. Times are
/// milliseconds of one clock of the caller's choice.
class AutoRepeat {
 public:
  struct Settings {
    double delay = 0;                                     ///< from the press to the first repeat
    double interval = 0;                                  ///< between repeats, over 0
    std::function<bool(std::uint32_t scanCode)> repeats;  ///< whether a key repeats at all
  };

  struct Press {
    std::uint32_t scanCode = 0;
    double time = 0;
  };

  void setSettings(Settings settings) { settings_ = std::move(settings); }

  void press(std::uint32_t scanCode, double time);
  void release(std::uint32_t scanCode);

  /// Ends what repeats and answers which key that was: its window has lost the focus, say.
  std::optional<std::uint32_t> stop();

  /// When the next repeat is due.
  [[nodiscard]] std::optional<double> dueTime() const;

  /// The next repeat that is due at `now`; absent when none is.
  [[nodiscard]] std::optional<Press> takeDue(double now);

 private:
  Settings settings_;
  std::optional<Press> next_;
};

}  // namespace mirvane
