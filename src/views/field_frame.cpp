#include "views/field_frame.h"

#include <QEvent>
#include <QPainter>

#include "views/layouts.h"
#include "views/theme.h"

namespace mirvane {

FieldFrame::FieldFrame(QWidget* field, const QColor& accent, QWidget* parent)
    : QWidget(parent), field_(field), accent_(accent) {
  constexpr int margin = 8;
  auto* const column = makeColumn(0, this);
  column->setContentsMargins(margin, margin, margin, margin);
  column->addWidget(field);
  field->installEventFilter(this);
  setFocusProxy(field);
}

bool FieldFrame::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  return false;
}

void FieldFrame::paintEvent(QPaintEvent* /*event*/) {
  constexpr double cornerRadius = 10;
  const bool isFocused = field_->hasFocus();
  const double width = isFocused ? 2.5 : 1;
  const QColor color =
      isFocused ? theme::readable(accent_, palette())
                : theme::withOpacity(theme::color(theme::Tone::secondary, palette()), 0.4);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(palette().color(QPalette::Base));
  painter.setPen(QPen(color, width));
  const double inset = width / 2;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), cornerRadius,
                          cornerRadius);
}

}  // namespace mirvane
