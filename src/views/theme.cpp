#include "views/theme.h"

#include <QGuiApplication>
#include <algorithm>
#include <cmath>

namespace mirvane::theme {
namespace {

constexpr double minimumButtonContrast = 3.0;
constexpr QColor green(0x28, 0xA7, 0x45);

QColor blend(const QColor& front, const QColor& back, double share) {
  const auto mix = [share](double a, double b) {
    return static_cast<float>(a * share + b * (1 - share));
  };
  return QColor::fromRgbF(mix(front.redF(), back.redF()), mix(front.greenF(), back.greenF()),
                          mix(front.blueF(), back.blueF()));
}

double linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

QColor text(const QPalette& palette) {
  return palette.color(QPalette::WindowText);
}
QColor window(const QPalette& palette) {
  return palette.color(QPalette::Window);
}

}  // namespace

QColor deep() {
  return QColor::fromRgbF(0.08F, 0.19F, 0.52F);
}
QColor sky() {
  return QColor::fromRgbF(0.47F, 0.63F, 0.94F);
}
QColor orange() {
  return {0xFF, 0x95, 0x00};
}

bool isDark(const QPalette& palette) {
  return luminance(window(palette)) < 0.2;
}

double contrast(const QColor& a, const QColor& b) {
  const double first = luminance(a) + 0.05;
  const double second = luminance(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

namespace {

QColor toneColor(Tone tone, const QPalette& palette, double wantedContrast) {
  switch (tone) {
    case Tone::primary:
      return text(palette);
    case Tone::secondary:
      return blend(text(palette), window(palette), 0.72);
    case Tone::tertiary:
      return blend(text(palette), window(palette), 0.5);
    case Tone::warning:
      return readable(orange(), palette, wantedContrast);
    case Tone::success:
      return readable(green, palette, wantedContrast);
  }
  return text(palette);
}

}  // namespace

QColor color(Tone tone, const QPalette& palette) {
  return toneColor(tone, palette, textContrast);
}

QColor symbolColor(Tone tone, const QPalette& palette) {
  return toneColor(tone, palette, symbolContrast);
}

QColor readable(const QColor& accent, const QPalette& palette, double wantedContrast) {
  const QColor background = window(palette);
  const double step = isDark(palette) ? 0.02 : -0.02;
  float hue = 0;
  float saturation = 0;
  float lightness = 0;
  accent.getHslF(&hue, &saturation, &lightness);
  QColor result = accent;
  for (double l = lightness; contrast(result, background) < wantedContrast; l += step) {
    if (l < 0 || l > 1) break;
    result = QColor::fromHslF(hue, saturation, static_cast<float>(l));
  }
  return result;
}

QColor textOn(const QColor& surface) {
  return contrast(Qt::white, surface) >= minimumButtonContrast ? QColor(Qt::white) : deep();
}

QColor bar(const QPalette& palette) {
  return blend(text(palette), window(palette), 0.03);
}
QColor divider(const QPalette& palette) {
  return blend(text(palette), window(palette), 0.14);
}

QColor withOpacity(QColor color, double opacity) {
  color.setAlphaF(static_cast<float>(opacity));
  return color;
}

QFont font(int pixelSize, QFont::Weight weight) {
  QFont result = QGuiApplication::font();
  result.setPixelSize(pixelSize);
  result.setWeight(weight);
  return result;
}

}  // namespace mirvane::theme
