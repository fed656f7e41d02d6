#include "views/mirvane_primary_button.h"

#include <utility>

#include "views/theme.h"

namespace mirvane {

MirvanePrimaryButton::MirvanePrimaryButton(const QString& label, const QString& icon,
                                           const QColor& color, std::function<void()> action,
                                           QWidget* parent)
    : RoundedButton(label, theme::font(15, QFont::DemiBold), parent) {
  constexpr int buttonHeight = 50;
  setFixedHeight(buttonHeight);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setLabel(label, icon, color);
  connect(this, &QPushButton::clicked, this, [action = std::move(action)] { action(); });
}

void MirvanePrimaryButton::setLabel(const QString& label, const QString& icon,
                                    const QColor& color) {
  constexpr int symbolPointSize = 13;
  color_ = color;
  setText(label);
  setAccessibleName(label);
  setSymbol(icon, symbolPointSize);
}

RoundedButton::Look MirvanePrimaryButton::look() const {
  constexpr double disabledOpacity = 0.55;
  const auto [fill, text, outline] = theme::filled(color_, palette());
  return {.fill = fill,
          .shade = shadeBehind(text),
          .outline = outline,
          .content = text,
          .cornerRadius = 10,
          .opacity = isEnabled() ? 1.0 : disabledOpacity};
}

}  // namespace mirvane
