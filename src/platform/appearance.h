#pragma once

namespace mirvane {

/// How the user wants programs to look, as set in the desktop.
struct Appearance {
  enum class ColorScheme { noPreference, dark, light };

  ColorScheme colorScheme = ColorScheme::noPreference;
  bool wantsHighContrast = false;

  bool operator==(const Appearance&) const = default;
};

}  // namespace mirvane
