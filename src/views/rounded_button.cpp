#include "views/rounded_button.h"

#include <QAccessible>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "views/accessible_button.h"
#include "views/surface.h"
#include "views/symbol.h"
#include "views/theme.h"

namespace mirvane {
namespace {

constexpr int horizontalPadding = 16;
constexpr int symbolGap = 8;
constexpr int minimumTarget = 44;
/// Text widths are rounded: a little more room keeps the last letter from being left out.
constexpr int textSlack = 4;
/// That of a disabled button: both can not be pressed.
constexpr double notReadyOpacity = 0.55;
constexpr double hoverShade = 0.08;
constexpr double pressedShade = 0.18;

bool isReturn(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool isPress(const QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return true;
    case QEvent::KeyPress: {
      const auto& key = static_cast<const QKeyEvent&>(event);
      return isReturn(key) || key.key() == Qt::Key_Space || key.key() == Qt::Key_Select;
    }
    default:
      return false;
  }
}

void tellReadiness(QWidget& button) {
  QAccessible::State changed;
  changed.disabled = true;
  QAccessibleStateChangeEvent event(&button, changed);
  QAccessible::updateAccessibility(&event);
}

}  // namespace

RoundedButton::RoundedButton(const QString& text, const QFont& font, QWidget* parent)
    : QPushButton(text, parent) {
  [[maybe_unused]] static const bool isInstalled = (AccessibleButton::install(), true);
  setFont(font);
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
  setCursor(Qt::PointingHandCursor);
}

void RoundedButton::setSymbol(const QString& name, int pointSize) {
  symbol_ = name;
  symbolPointSize_ = pointSize;
  updateGeometry();
  update();
}

void RoundedButton::setReady(bool isReady) {
  if (isReady_ == isReady) return;
  isReady_ = isReady;
  if (!isReady) setDown(false);
  update();
  tellReadiness(*this);
}

int RoundedButton::shownSymbolSide() const {
  return symbol_.isEmpty() ? 0 : symbolSide(symbolPointSize_);
}

QSize RoundedButton::sizeHint() const {
  const int symbolWidth = symbol_.isEmpty() ? 0 : shownSymbolSide() + symbolGap;
  const int width =
      fontMetrics().horizontalAdvance(text()) + textSlack + symbolWidth + 2 * horizontalPadding;
  return {std::max(width, minimumTarget), minimumTarget};
}

bool RoundedButton::event(QEvent* event) {
  const auto type = event->type();
  if (type == QEvent::FocusIn || type == QEvent::FocusOut || type == QEvent::PaletteChange) {
    update();
  }
  if (!isReady_ && isPress(*event)) {
    event->accept();
    return true;
  }
  return QPushButton::event(event);
}

void RoundedButton::keyPressEvent(QKeyEvent* event) {
  if (!isReturn(*event)) return QPushButton::keyPressEvent(event);
  if (!event->isAutoRepeat()) setDown(true);
}

void RoundedButton::keyReleaseEvent(QKeyEvent* event) {
  if (!isReturn(*event)) return QPushButton::keyReleaseEvent(event);
  if (event->isAutoRepeat() || !isDown()) return;
  setDown(false);
  click();
}

void RoundedButton::mouseDoubleClickEvent(QMouseEvent* event) {
  event->accept();
}

QColor RoundedButton::shadeBehind(const QColor& text) {
  return text.lightnessF() > 0.5 ? Qt::black : Qt::white;
}

RoundedButton::Look RoundedButton::readableLook() const {
  Look result = look();
  const auto atRest = laidOver(surfacesBehind(*this), {result.fill});
  const auto shaded = laidOver(atRest, {theme::withOpacity(result.shade, hoverShade),
                                        theme::withOpacity(result.shade, pressedShade)});
  if (!theme::isHighContrast(palette())) {
    result.content = theme::readable(result.content, palette(), atRest + shaded);
  }
  return result;
}

void RoundedButton::paintEvent(QPaintEvent* /*event*/) {
  const Look current = readableLook();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setOpacity(isReady_ ? current.opacity : std::min(current.opacity, notReadyOpacity));
  drawSurface(painter, current);
  drawContent(painter, current);
  if (hasFocus()) drawFocusRing(painter, current);
}

void RoundedButton::drawSurface(QPainter& painter, const Look& current) const {
  const double width = theme::outlineWidth(palette());
  const QRectF surface = QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2);
  painter.setPen(QPen(current.outline, width));
  painter.setBrush(current.fill);
  painter.drawRoundedRect(surface, current.cornerRadius, current.cornerRadius);
  if (!canBePressed() || !(underMouse() || isDown())) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(theme::withOpacity(current.shade, isDown() ? pressedShade : hoverShade));
  painter.drawRoundedRect(surface, current.cornerRadius, current.cornerRadius);
}

void RoundedButton::drawContent(QPainter& painter, const Look& current) const {
  const int side = shownSymbolSide();
  const int symbolWidth = side == 0 ? 0 : side + symbolGap;
  const int room = width() - 2 * horizontalPadding - symbolWidth;
  const QString label = fontMetrics().elidedText(text(), Qt::ElideRight, room);
  const int labelWidth = fontMetrics().horizontalAdvance(label);
  const int left = (width() - labelWidth - symbolWidth) / 2;
  painter.setPen(current.content);
  painter.setFont(font());
  painter.drawText(QRect(left, 0, labelWidth + 1, height()), Qt::AlignVCenter | Qt::AlignLeft,
                   label);
  if (side == 0) return;
  drawSymbol(painter, QRectF(left + labelWidth + symbolGap, (height() - side) / 2.0, side, side),
             symbol_, side, current.content);
}

void RoundedButton::drawFocusRing(QPainter& painter, const Look& current) const {
  constexpr double inset = 3;
  painter.setPen(QPen(current.content, 2));
  painter.setBrush(Qt::NoBrush);
  const double radius = std::max(current.cornerRadius - inset, 2.0);
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
}

}  // namespace mirvane
