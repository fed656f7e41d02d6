#include "views/section_heading.h"

#include "views/layouts.h"
#include "views/symbol.h"
#include "views/text_label.h"

namespace mirvane {

SectionHeading::SectionHeading(const QString& text, const QString& symbol, const Style& style,
                               QWidget* parent)
    : QWidget(parent) {
  auto* const row = makeRow(6, this);
  if (!symbol.isEmpty()) {
    auto* const drawing = new Symbol(symbol, style.pointSize, style.symbolTone, this);
    drawing->setObjectName(symbol);
    row->addWidget(drawing, 0, Qt::AlignVCenter);
  }
  auto* const label = new TextLabel(text, style.pointSize, QFont::DemiBold, style.textTone, this);
  label->setHeading();
  row->addWidget(label, 1);
}

}  // namespace mirvane
