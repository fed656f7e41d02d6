#include "views/scroll_column.h"

#include "views/layouts.h"

namespace mirvane {

ScrollColumn::ScrollColumn(int spacing, QWidget* parent) : QScrollArea(parent) {
  auto* const content = new QWidget;
  column_ = makeColumn(spacing, content);
  column_->setContentsMargins(24, 16, 24, 16);
  setWidget(content);
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
}

}  // namespace mirvane
