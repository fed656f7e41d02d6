#include "views/theme.h"

#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace mirvane::theme {
namespace {

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

double contrast(double luminanceA, double luminanceB) {
  const double first = luminanceA + 0.05;
  const double second = luminanceB + 0.05;
  return std::max(first, second) / std::min(first, second);
}

std::vector<double> luminances(const QList<QColor>& colors) {
  std::vector<double> result;
  for (const auto& one : colors) result.push_back(luminance(one));
  return result;
}

double lowestContrast(double front, const std::vector<double>& backs) {
  double lowest = 21;
  for (const double back : backs) lowest = std::min(lowest, contrast(front, back));
  return lowest;
}

QColor text(const QPalette& palette) {
  return palette.color(QPalette::WindowText);
}
QColor window(const QPalette& palette) {
  return palette.color(QPalette::Window);
}

QColor toneColor(Tone tone, const QPalette& palette) {
  switch (tone) {
    case Tone::primary:
      break;
    case Tone::secondary:
      return blend(text(palette), window(palette), 0.72);
    case Tone::tertiary:
      return blend(text(palette), window(palette), 0.5);
    case Tone::warning:
      return orange();
    case Tone::success:
      return green;
  }
  return text(palette);
}

}  // namespace

QColor deep() {
  return QColor::fromRgbF(0.08F, 0.19F, 0.52F);
}
QColor sky() {
  return QColor::fromRgbF(0.47F, 0.63F, 0.94F);
}
QColor savedGreen() {
  return {0x22, 0x87, 0x3A};
}
QColor orange() {
  return {0xFF, 0x95, 0x00};
}

bool isDark(const QPalette& palette) {
  return luminance(window(palette)) < 0.2;
}

bool isHighContrast(const QPalette& palette) {
  constexpr double nearlyBlackOnWhite = 20;
  using Roles = std::pair<QPalette::ColorRole, QPalette::ColorRole>;
  const std::array<Roles, 3> pairs{{{QPalette::WindowText, QPalette::Window},
                                    {QPalette::Text, QPalette::Base},
                                    {QPalette::ButtonText, QPalette::Button}}};
  return std::all_of(pairs.begin(), pairs.end(), [&](const Roles& roles) {
    return contrast(palette.color(roles.first), palette.color(roles.second)) >= nearlyBlackOnWhite;
  });
}

double contrast(const QColor& a, const QColor& b) {
  return contrast(luminance(a), luminance(b));
}

QColor color(Tone tone, const QPalette& palette, const QList<QColor>& surfaces,
             double wantedContrast) {
  return readable(toneColor(tone, palette), palette, surfaces, wantedContrast);
}

QColor readable(const QColor& accent, const QPalette& palette, const QList<QColor>& surfaces,
                double wantedContrast) {
  if (isHighContrast(palette)) return text(palette);
  constexpr double step = 0.01;
  const auto backs = luminances(surfaces);
  const double direction = lowestContrast(1, backs) > lowestContrast(0, backs) ? step : -step;
  float hue = 0;
  float saturation = 0;
  float lightness = 0;
  accent.getHslF(&hue, &saturation, &lightness);
  QColor result = accent;
  for (double l = lightness; lowestContrast(luminance(result), backs) < wantedContrast;) {
    l += direction;
    if (l < 0 || l > 1) return direction > 0 ? Qt::white : Qt::black;
    result = QColor::fromHslF(hue, saturation, static_cast<float>(l));
  }
  return result;
}

QColor readable(const QColor& accent, const QPalette& palette) {
  return readable(accent, palette, {window(palette)});
}

QColor textOn(const QColor& surface) {
  return contrast(Qt::white, surface) >= textContrast ? QColor(Qt::white) : deep();
}

Filled filled(const QColor& color, const QPalette& palette) {
  if (isHighContrast(palette)) {
    return {palette.color(QPalette::Highlight), palette.color(QPalette::HighlightedText),
            text(palette)};
  }
  // On a dark window an edge keeps the fill apart from its surroundings.
  return {color, textOn(color), withOpacity(Qt::white, isDark(palette) ? 0.25 : 0.0)};
}

QColor faintFill(const QColor& color, double opacity, const QPalette& palette) {
  if (isHighContrast(palette)) return Qt::transparent;
  return withOpacity(isDark(palette) ? readable(color, palette) : color, opacity);
}

QColor faintOutline(const QColor& color, double opacity, const QPalette& palette) {
  if (isHighContrast(palette)) return text(palette);
  return withOpacity(isDark(palette) ? readable(color, palette) : color, opacity);
}

double outlineWidth(const QPalette& palette) {
  return isHighContrast(palette) ? 2 : 1;
}

QColor bar(const QPalette& palette) {
  if (isHighContrast(palette)) return window(palette);
  return blend(text(palette), window(palette), 0.03);
}
QColor divider(const QPalette& palette) {
  if (isHighContrast(palette)) return text(palette);
  return blend(text(palette), window(palette), 0.14);
}

QColor withOpacity(QColor color, double opacity) {
  color.setAlphaF(static_cast<float>(opacity));
  return color;
}

QColor laidOver(const QColor& back, const QColor& front) {
  return blend(front, back, front.alphaF());
}

QFont font(int pixelSize, QFont::Weight weight) {
  QFont result = QGuiApplication::font();
  result.setPixelSize(pixelSize);
  result.setWeight(weight);
  return result;
}

}  // namespace mirvane::theme
