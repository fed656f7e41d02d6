#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

/// Colours and fonts of the screens. What is not a brand colour comes from the palette, so that the
/// screens follow the desktop, light or dark.
namespace mirvane::theme {

/// The brand's two blues, sRGB.
[[nodiscard]] QColor deep();
[[nodiscard]] QColor sky();

/// The colour of warnings and tips.
[[nodiscard]] QColor orange();

/// How much a text or a symbol stands out.
enum class Tone { primary, secondary, tertiary, warning, success };

[[nodiscard]] bool isDark(const QPalette& palette);
[[nodiscard]] QColor color(Tone tone, const QPalette& palette);
/// The same for symbols, which are read at a lower contrast than texts.
[[nodiscard]] QColor symbolColor(Tone tone, const QPalette& palette);

/// `accent`, moved just far enough from the window colour to be read on it: texts need a contrast
/// of 4.5:1 (WCAG 2.1, 1.4.3), symbols of 3:1 (1.4.11).
inline constexpr double textContrast = 4.5;
inline constexpr double symbolContrast = 3;
[[nodiscard]] QColor readable(const QColor& accent, const QPalette& palette,
                              double wantedContrast = textContrast);

/// The colour of text on a surface filled with `surface`: white, or `deep` where white is too pale.
[[nodiscard]] QColor textOn(const QColor& surface);

/// Bars above and below the content, and the lines that part them from it.
[[nodiscard]] QColor bar(const QPalette& palette);
[[nodiscard]] QColor divider(const QPalette& palette);

[[nodiscard]] QColor withOpacity(QColor color, double opacity);

/// Contrast of two opaque colours, 1 to 21 (WCAG 2.1).
[[nodiscard]] double contrast(const QColor& a, const QColor& b);

/// The application's font; sizes are device-independent pixels.
[[nodiscard]] QFont font(int pixelSize, QFont::Weight weight = QFont::Normal);

}  // namespace mirvane::theme
