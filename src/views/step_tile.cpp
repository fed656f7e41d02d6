#include "views/step_tile.h"

#include "views/accessible_parts.h"
#include "views/badge.h"
#include "views/layouts.h"
#include "views/text_label.h"
#include "views/theme.h"

namespace mirvane {

StepTile::StepTile(const QString& badge, const QString& name, const QString& description,
                   QWidget* parent)
    : RoundedCard({.color = theme::deep(), .fillOpacity = 0.06, .cornerRadius = 10}, parent) {
  setAccessibleRole(*this, QAccessible::ListItem);
  setAccessibleName(tr("%1: %2").arg(name, description));
  constexpr int badgeSide = 28;
  auto* const column = makeColumn(4, this);
  column->setContentsMargins(6, 12, 6, 12);
  column->addWidget(new Badge({.text = badge, .side = badgeSide, .pointSize = 13}, this), 0,
                    Qt::AlignHCenter);
  for (auto* const label :
       {new TextLabel(name, 13, QFont::DemiBold, theme::Tone::primary, this),
        new TextLabel(description, 11, QFont::Normal, theme::Tone::secondary, this)}) {
    label->setAlignment(Qt::AlignHCenter);
    column->addWidget(label);
  }
  column->addStretch(1);
}

}  // namespace mirvane
