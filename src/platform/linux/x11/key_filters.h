#pragma once

#include <cstdint>
#include <optional>
#include <set>

namespace mirvane {

/// The desktop's Slow Keys and Bounce Keys, as far as they decide which presses of the hardware
/// become typing (the X Keyboard Extension, protocol specification, "Slow Keys" and "Bounce Keys").
/// Raw events come before these filters. Times are milliseconds of the X server.
class KeyFilters {
 public:
  struct Settings {
    bool isSlowKeysOn = false;
    bool isBounceKeysOn = false;
    double bounceDelay = 0;  ///< after a release, during which the same key is not taken
  };

  void setSettings(const Settings& settings);

  /// Whether the press is typing at once. One that Slow Keys holds back becomes typing, if ever,
  /// when the server says so: `acceptSlowKey`.
  [[nodiscard]] bool press(std::uint32_t scanCode, double time);

  void acceptSlowKey(std::uint32_t scanCode) { held_.insert(scanCode); }

  /// Whether the release belongs to a press that was taken.
  [[nodiscard]] bool release(std::uint32_t scanCode, double time);

 private:
  [[nodiscard]] bool bounces(std::uint32_t scanCode, double time) const;

  Settings settings_;
  std::set<std::uint32_t> held_;  ///< taken and not released yet
  struct Release {
    std::uint32_t scanCode = 0;
    double time = 0;
  };
  std::optional<Release> lastRelease_;
};

}  // namespace mirvane
