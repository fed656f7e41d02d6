#include "views/scroll_column.h"

#include <QEvent>

#include "views/layouts.h"

namespace mirvane {

ScrollColumn::ScrollColumn(int spacing, QWidget* parent) : QScrollArea(parent) {
  auto* const content = new QWidget;
  column_ = makeColumn(spacing, content);
  column_->setContentsMargins(24, 16, 24, 16);
  setWidget(content);
  content->installEventFilter(this);
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
}

bool ScrollColumn::eventFilter(QObject* watched, QEvent* event) {
  const bool isScrolled = QScrollArea::eventFilter(watched, event);
  if (watched == widget() && event->type() == QEvent::LayoutRequest) keepTextsWhole();
  return isScrolled;
}

void ScrollColumn::resizeEvent(QResizeEvent* event) {
  keepTextsWhole();
  QScrollArea::resizeEvent(event);
}

void ScrollColumn::keepTextsWhole() {
  widget()->setMinimumHeight(column_->minimumHeightForWidth(viewport()->width()));
}

}  // namespace mirvane
