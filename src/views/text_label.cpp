#include "views/text_label.h"

#include <QEvent>

#include "views/accessible_parts.h"
#include "views/surface.h"

namespace mirvane {

TextLabel::TextLabel(const QString& text, int pixelSize, QFont::Weight weight, theme::Tone tone,
                     QWidget* parent)
    : QLabel(text, parent), tone_(tone) {
  setTextFormat(Qt::PlainText);
  setFont(theme::font(pixelSize, weight));
  setWordWrap(true);
  applyColor();
}

void TextLabel::setTone(theme::Tone tone) {
  tone_ = tone;
  applyColor();
}

void TextLabel::setHeading() {
  setAccessibleRole(*this, QAccessible::Heading);
}

void TextLabel::setAccent(const QColor& accent) {
  accent_ = accent;
  applyColor();
}

void TextLabel::setFixedColor(const QColor& color) {
  fixedColor_ = color;
  applyColor();
}

void TextLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::ApplicationPaletteChange || event->type() == QEvent::PaletteChange) {
    applyColor();
  }
}

bool TextLabel::event(QEvent* event) {
  // Only in its place in a window does a label know what it stands on.
  if (event->type() == QEvent::Polish || event->type() == QEvent::ShowToParent) applyColor();
  return QLabel::event(event);
}

QColor TextLabel::currentColor() const {
  if (fixedColor_.isValid()) return fixedColor_;
  // The tone is worked out from the inherited palette: the label's own text colour is the result.
  const QPalette inherited = parentWidget() != nullptr ? parentWidget()->palette() : QPalette();
  const auto surfaces = surfacesBehind(*this);
  if (accent_.isValid()) return theme::readable(accent_, inherited, surfaces);
  return theme::color(tone_, inherited, surfaces);
}

void TextLabel::applyColor() {
  const QColor color = currentColor();
  if (palette().color(QPalette::WindowText) == color) return;
  QPalette own = palette();
  own.setColor(QPalette::WindowText, color);
  setPalette(own);
}

}  // namespace mirvane
