#pragma once

#include <functional>

#include "views/rounded_button.h"

namespace mirvane {

/// The one main action of a screen. Disabled, it is paler and pressing it does nothing.
class MirvanePrimaryButton : public RoundedButton {
  Q_OBJECT

 public:
  MirvanePrimaryButton(const QString& label, const QString& icon, const QColor& color,
                       std::function<void()> action, QWidget* parent = nullptr);

  void setLabel(const QString& label, const QString& icon, const QColor& color);

 protected:
  [[nodiscard]] Look look() const override;

 private:
  QColor color_;
};

}  // namespace mirvane
