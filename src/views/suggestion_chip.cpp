#include "views/suggestion_chip.h"

#include "views/theme.h"

namespace mirvane {
namespace {

constexpr int pointSize = 14;

QFont::Weight weightOf(SuggestionChip::Emphasis emphasis) {
  switch (emphasis) {
    case SuggestionChip::Emphasis::current:
      return QFont::Bold;
    case SuggestionChip::Emphasis::best:
      return QFont::DemiBold;
    case SuggestionChip::Emphasis::other:
      break;
  }
  return QFont::Normal;
}

}  // namespace

SuggestionChip::SuggestionChip(const QColor& accent, QWidget* parent)
    : RoundedButton({}, theme::font(pointSize), parent), accent_(accent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SuggestionChip::setSuggestion(const QString& suggestion, Emphasis emphasis) {
  emphasis_ = emphasis;
  setText(suggestion);
  setFont(theme::font(pointSize, weightOf(emphasis)));
  setToolTip(tr("Apply %1").arg(suggestion));
  setAccessibleName(tr("Apply %1").arg(suggestion));
  setAccessibleDescription(emphasis == Emphasis::current ? tr("Current candidate") : QString());
  update();
}

RoundedButton::Look SuggestionChip::look() const {
  constexpr double cornerRadius = 9;
  // The text stands on a tint of its own colour, which takes contrast away.
  constexpr double contrastOnWindow = 6.5;
  const QColor accent = theme::readable(accent_, palette(), contrastOnWindow);
  const bool isDark = theme::isDark(palette());
  const QColor shade = isDark ? accent : accent_;
  const QColor secondary = theme::color(theme::Tone::secondary, palette());
  switch (emphasis_) {
    case Emphasis::current:
      return {theme::withOpacity(shade, 0.28), accent, accent, cornerRadius, 1};
    case Emphasis::best:
      return {theme::withOpacity(shade, 0.14), Qt::transparent, accent, cornerRadius, 1};
    case Emphasis::other:
      break;
  }
  return {theme::withOpacity(secondary, 0.08), Qt::transparent, secondary, cornerRadius, 1};
}

}  // namespace mirvane
