#include "views/bordered_button.h"

#include "views/theme.h"

namespace mirvane {

BorderedButton::BorderedButton(const QString& text, const QColor& tint, QWidget* parent)
    : RoundedButton(text, theme::font(13, QFont::Medium), parent), tint_(tint) {
  setAccessibleName(text);
}

RoundedButton::Look BorderedButton::look() const {
  if (tint_.isValid()) {
    const QColor edge = theme::withOpacity(Qt::white, theme::isDark(palette()) ? 0.25 : 0.0);
    return {tint_, edge, theme::textOn(tint_), 8, 1};
  }
  const QColor text = palette().color(QPalette::WindowText);
  return {palette().color(QPalette::Button), theme::withOpacity(text, 0.28), text, 8, 1};
}

}  // namespace mirvane
