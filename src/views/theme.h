#pragma once

#include <QColor>
#include <QFont>
#include <QList>
#include <QPalette>

/// Colours and fonts of the screens. What is not a brand colour comes from the palette, so that the
/// screens follow the desktop, light or dark. A palette of high contrast is used as it is: its
/// roles in place of accents, no faint fills, and outlines at full strength.
namespace mirvane::theme {

/// The brand's two blues, sRGB.
[[nodiscard]] QColor deep();
[[nodiscard]] QColor sky();

/// The colour of warnings and tips.
[[nodiscard]] QColor orange();

/// The fill of the button that has saved.
[[nodiscard]] QColor savedGreen();

/// How much a text or a symbol stands out.
enum class Tone { primary, secondary, tertiary, warning, success };

[[nodiscard]] bool isDark(const QPalette& palette);
/// Whether texts and what they stand on lie at the two ends of the scale, as in the palettes made
/// for people who need it.
[[nodiscard]] bool isHighContrast(const QPalette& palette);

/// Texts need a contrast of 4.5:1 to what they stand on (WCAG 2.1, 1.4.3), symbols of 3:1 (1.4.11).
inline constexpr double textContrast = 4.5;
inline constexpr double symbolContrast = 3;

/// The colour of a text or symbol of this tone on all of these surfaces, which are opaque.
[[nodiscard]] QColor color(Tone tone, const QPalette& palette, const QList<QColor>& surfaces,
                           double wantedContrast = textContrast);

/// `accent`, moved just far enough from the surfaces to be read on each of them, or as far as it
/// goes. In a palette of high contrast the text colour instead.
[[nodiscard]] QColor readable(const QColor& accent, const QPalette& palette,
                              const QList<QColor>& surfaces, double wantedContrast = textContrast);
/// The same on the window's own colour.
[[nodiscard]] QColor readable(const QColor& accent, const QPalette& palette);

/// The colour of text on a surface filled with `surface`: white, or `deep` where white is too pale.
[[nodiscard]] QColor textOn(const QColor& surface);

/// What is filled with a colour of the brand.
struct Filled {
  QColor fill;
  QColor text;
  QColor outline;
};
[[nodiscard]] Filled filled(const QColor& color, const QPalette& palette);

/// Faintly in a colour, which a dark window would swallow without some light.
[[nodiscard]] QColor faintFill(const QColor& color, double opacity, const QPalette& palette);
[[nodiscard]] QColor faintOutline(const QColor& color, double opacity, const QPalette& palette);
/// How thick an outline of usually one pixel is drawn.
[[nodiscard]] double outlineWidth(const QPalette& palette);

/// Bars above and below the content, and the lines that part them from it.
[[nodiscard]] QColor bar(const QPalette& palette);
[[nodiscard]] QColor divider(const QPalette& palette);

[[nodiscard]] QColor withOpacity(QColor color, double opacity);
/// What is seen of a translucent colour over an opaque one.
[[nodiscard]] QColor laidOver(const QColor& back, const QColor& front);

/// Contrast of two opaque colours, 1 to 21 (WCAG 2.1).
[[nodiscard]] double contrast(const QColor& a, const QColor& b);

/// The application's font; sizes are device-independent pixels.
[[nodiscard]] QFont font(int pixelSize, QFont::Weight weight = QFont::Normal);

}  // namespace mirvane::theme
