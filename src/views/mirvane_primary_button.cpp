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
  return {color_, theme::withOpacity(Qt::white, theme::isDark(palette()) ? 0.25 : 0.0),
          theme::textOn(color_), 10, isEnabled() ? 1.0 : disabledOpacity};
}

}  // namespace mirvane
