#include "views/scroll_column.h"

#include <QApplication>
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
  connect(qApp, &QApplication::focusChanged, this, &ScrollColumn::showFocus);
}

bool ScrollColumn::eventFilter(QObject* watched, QEvent* event) {
  const bool isScrolled = QScrollArea::eventFilter(watched, event);
  if (watched == widget() && event->type() == QEvent::LayoutRequest) keepTextsWhole();
  return isScrolled;
}

void ScrollColumn::resizeEvent(QResizeEvent* event) {
  keepTextsWhole();
  QScrollArea::resizeEvent(event);
  showFocus();
}

void ScrollColumn::showFocus() {
  constexpr int margin = 16;
  auto* const focus = QApplication::focusWidget();
  if (focus != nullptr && widget()->isAncestorOf(focus)) ensureWidgetVisible(focus, 0, margin);
}

void ScrollColumn::keepTextsWhole() {
  widget()->setMinimumHeight(column_->minimumHeightForWidth(viewport()->width()));
}

}  // namespace mirvane
