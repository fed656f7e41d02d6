#include "views/mirvane_info_card.h"

#include "views/layouts.h"

namespace mirvane {

MirvaneInfoCard::MirvaneInfoCard(const QColor& accentColor, QWidget* parent)
    : RoundedCard({.color = accentColor}, parent), content_(makeColumn(10, this)) {
  content_->setContentsMargins(16, 16, 16, 16);
}

}  // namespace mirvane
