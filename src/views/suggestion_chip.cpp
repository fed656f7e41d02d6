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
  // Its place is as wide as the others, whatever it says.
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  setMinimumWidth(minimumSizeHint().height());
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
  const QColor text = palette().color(QPalette::WindowText);
  if (theme::isHighContrast(palette())) {
    if (emphasis_ != Emphasis::current) return {Qt::transparent, text, text, text, cornerRadius};
    const auto [fill, onFill, outline] = theme::filled(accent_, palette());
    return {fill, shadeBehind(onFill), outline, onFill, cornerRadius};
  }
  const QColor secondary =
      theme::color(theme::Tone::secondary, palette(), {palette().color(QPalette::Window)});
  switch (emphasis_) {
    case Emphasis::current:
      return {theme::faintFill(accent_, 0.28, palette()), text, theme::readable(accent_, palette()),
              accent_, cornerRadius};
    case Emphasis::best:
      return {theme::faintFill(accent_, 0.14, palette()), text, Qt::transparent, accent_,
              cornerRadius};
    case Emphasis::other:
      break;
  }
  return {theme::withOpacity(secondary, 0.08), text, Qt::transparent, secondary, cornerRadius};
}

}  // namespace mirvane
