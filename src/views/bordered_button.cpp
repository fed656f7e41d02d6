#include "views/bordered_button.h"

#include "views/theme.h"

namespace mirvane {

BorderedButton::BorderedButton(const QString& text, const QColor& tint, QWidget* parent)
    : RoundedButton(text, theme::font(13, QFont::Medium), parent), tint_(tint) {
  setAccessibleName(text);
}

RoundedButton::Look BorderedButton::look() const {
  if (tint_.isValid()) {
    const auto [fill, text, outline] = theme::filled(tint_, palette());
    return {.fill = fill, .shade = shadeBehind(text), .outline = outline, .content = text};
  }
  const QColor text = palette().color(QPalette::ButtonText);
  return {.fill = palette().color(QPalette::Button),
          .shade = text,
          .outline = theme::faintOutline(text, 0.28, palette()),
          .content = text};
}

}  // namespace mirvane
