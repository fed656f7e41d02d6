#pragma once

#include <QVBoxLayout>

#include "views/rounded_card.h"

namespace mirvane {

/// A card across the page, faintly in its accent colour, whose content stands in a column.
class MirvaneInfoCard : public RoundedCard {
  Q_OBJECT

 public:
  explicit MirvaneInfoCard(const QColor& accentColor, QWidget* parent = nullptr);

  [[nodiscard]] QVBoxLayout& content() { return *content_; }

 private:
  QVBoxLayout* content_;
};

}  // namespace mirvane
