#include "views/field_frame.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "views/accessible_parts.h"
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
  setAccessibleRole(*this, QAccessible::Grouping);
  setAccessibleName(tr("Typing"));
  makeTextsReadable();
  setCursor(Qt::IBeamCursor);
}

bool FieldFrame::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  return false;
}

void FieldFrame::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) makeTextsReadable();
}

void FieldFrame::makeTextsReadable() {
  QPalette own = field_->palette();
  own.setColor(QPalette::PlaceholderText,
               theme::color(theme::Tone::secondary, palette(), {palette().color(QPalette::Base)}));
  if (!theme::isHighContrast(palette())) {
    own.setColor(QPalette::Highlight,
                 theme::readable(palette().color(QPalette::Highlight), palette(),
                                 {palette().color(QPalette::HighlightedText)}));
  }
  field_->setPalette(own);
}

QList<QColor> FieldFrame::fills() const {
  return {palette().color(QPalette::Base)};
}

void FieldFrame::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  field_->setFocus(Qt::MouseFocusReason);
  auto* const area = qobject_cast<QAbstractScrollArea*>(field_);
  QWidget& text = area != nullptr ? *area->viewport() : *field_;
  const QPoint place = text.mapFrom(this, event->position().toPoint());
  const QPoint nearest(std::clamp(place.x(), 0, text.width() - 1),
                       std::clamp(place.y(), 0, text.height() - 1));
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent click(type, nearest, text.mapToGlobal(nearest), Qt::LeftButton, Qt::LeftButton,
                      event->modifiers());
    QCoreApplication::sendEvent(&text, &click);
  }
}

void FieldFrame::paintEvent(QPaintEvent* /*event*/) {
  constexpr double cornerRadius = 10;
  const bool isFocused = field_->hasFocus();
  const double width =
      isFocused ? 2.5 * theme::outlineWidth(palette()) : theme::outlineWidth(palette());
  const QColor color =
      isFocused ? theme::readable(accent_, palette())
                : theme::faintOutline(theme::color(theme::Tone::secondary, palette(), fills()), 0.4,
                                      palette());
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(fills().first());
  painter.setPen(QPen(color, width));
  const double inset = width / 2;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), cornerRadius,
                          cornerRadius);
}

}  // namespace mirvane
