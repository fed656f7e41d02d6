#pragma once

#include "views/rounded_button.h"

namespace mirvane {

/// A secondary action: outlined, or filled with a tint when it is the one to prefer.
class BorderedButton : public RoundedButton {
  Q_OBJECT

 public:
  explicit BorderedButton(const QString& text, const QColor& tint = {}, QWidget* parent = nullptr);

 protected:
  [[nodiscard]] Look look() const override;

 private:
  QColor tint_;
};

}  // namespace mirvane
