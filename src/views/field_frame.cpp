#include "views/field_frame.h"

#include <QEvent>
#include <QPainter>

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
