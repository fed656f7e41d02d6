#include "views/mirvane_page_header.h"

#include "views/divider.h"
#include "views/layouts.h"
#include "views/mirvane_logo.h"
#include "views/text_label.h"
#include "views/theme.h"

namespace mirvane {

MirvanePageHeader::MirvanePageHeader(const QString& title, const std::optional<QString>& subtitle,
                                     QWidget* parent)
    : Bar(parent) {
  auto* const texts = makeColumn(2);
  auto* const titleLabel = new TextLabel(title, 15, QFont::DemiBold, theme::Tone::primary, this);
  titleLabel->setHeading();
  titleLabel->setObjectName(QStringLiteral("pageTitle"));
  texts->addWidget(titleLabel);
  if (subtitle) {
    auto* const label = new TextLabel(*subtitle, 11, QFont::Normal, theme::Tone::secondary, this);
    label->setObjectName(QStringLiteral("pageSubtitle"));
    texts->addWidget(label);
  }

  auto* const row = makeRow(12);
  row->setContentsMargins(24, 12, 24, 12);
  row->addWidget(new MirvaneLogo(34, 8, theme::deep(), theme::sky(), this), 0, Qt::AlignVCenter);
  row->addLayout(texts, 1);

  auto* const column = makeColumn(0, this);
  column->addLayout(row);
  column->addWidget(new Divider(Qt::Horizontal, this));
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
}

}  // namespace mirvane
