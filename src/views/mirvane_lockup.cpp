#include "views/mirvane_lockup.h"

#include "views/layouts.h"
#include "views/mirvane_logo.h"
#include "views/text_label.h"
#include "views/theme.h"

namespace mirvane {

MirvaneLockup::MirvaneLockup(int iconSize, int fontSize, QWidget* parent) : QWidget(parent) {
  constexpr double radiusShare = 0.36;
  auto* const row = makeRow(8, this);
  row->addWidget(
      new MirvaneLogo(iconSize, radiusShare * iconSize, theme::deep(), theme::sky(), this));
  row->addWidget(
      new TextLabel(tr("Mirvane"), fontSize, QFont::DemiBold, theme::Tone::primary, this), 1);
}

}  // namespace mirvane
