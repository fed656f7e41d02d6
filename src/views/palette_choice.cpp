#include "views/palette_choice.h"

#include "views/theme.h"

namespace mirvane {
namespace {

struct Colors {
  QColor window, text, base, button, highlight, highlightedText;
};

QPalette paletteOf(const Colors& colors) {
  QPalette palette(colors.button, colors.window);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                          QPalette::BrightText, QPalette::ToolTipText}) {
    palette.setColor(role, colors.text);
  }
  palette.setColor(QPalette::Base, colors.base);
  palette.setColor(QPalette::AlternateBase, colors.base);
  palette.setColor(QPalette::ToolTipBase, colors.base);
  palette.setColor(QPalette::PlaceholderText, colors.text);
  palette.setColor(QPalette::Highlight, colors.highlight);
  palette.setColor(QPalette::HighlightedText, colors.highlightedText);
  return palette;
}

QPalette plain(bool isDark) {
  if (isDark) {
    return paletteOf({{0x24, 0x26, 0x2A},
                      {0xF5, 0xF5, 0xF5},
                      {0x1B, 0x1D, 0x20},
                      {0x34, 0x37, 0x3D},
                      {0x2B, 0x5F, 0xB4},
                      Qt::white});
  }
  return paletteOf({{0xEF, 0xEF, 0xEF},
                    Qt::black,
                    Qt::white,
                    {0xEF, 0xEF, 0xEF},
                    {0x2B, 0x5F, 0xB4},
                    Qt::white});
}

QPalette ofHighContrast(bool isDark) {
  if (isDark) return paletteOf({Qt::black, Qt::white, Qt::black, Qt::black, Qt::yellow, Qt::black});
  return paletteOf({Qt::white, Qt::black, Qt::white, Qt::white, Qt::black, Qt::white});
}

}  // namespace

std::optional<QPalette> chosenPalette(const QPalette& desktop, const Appearance& wanted) {
  const bool isDesktopDark = theme::isDark(desktop);
  const bool wantsDark = wanted.colorScheme == Appearance::ColorScheme::noPreference
                             ? isDesktopDark
                             : wanted.colorScheme == Appearance::ColorScheme::dark;
  if (theme::isHighContrast(desktop)) return std::nullopt;
  if (wanted.wantsHighContrast) return ofHighContrast(wantsDark);
  if (wantsDark == isDesktopDark) return std::nullopt;
  return plain(wantsDark);
}

}  // namespace mirvane
