#include "views/accessible_parts.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QApplication>
#include <QLineEdit>
#include <optional>

#include "views/scroll_column.h"
#include "views/text_label.h"

namespace mirvane {
namespace {

constexpr const char* roleProperty = "accessibleRole";

std::optional<QAccessible::Role> givenRole(const QWidget& widget) {
  const QVariant role = widget.property(roleProperty);
  if (!role.isValid()) return std::nullopt;
  return static_cast<QAccessible::Role>(role.toInt());
}

/// Whether a widget has a meaning of its own, not only what is laid out in it.
bool isControl(const QWidget& widget) {
  if (qobject_cast<const QAbstractScrollArea*>(&widget) != nullptr) {
    return qobject_cast<const ScrollColumn*>(&widget) == nullptr;
  }
  return qobject_cast<const QLabel*>(&widget) != nullptr ||
         qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
         qobject_cast<const QLineEdit*>(&widget) != nullptr;
}

bool isPassedOver(const QWidget& widget) {
  return !widget.isWindow() && !givenRole(widget) && !isControl(widget);
}

bool isHidden(const QWidget& widget) {
  return givenRole(widget) == QAccessible::NoRole ||
         qobject_cast<const QAbstractSlider*>(&widget) != nullptr;
}

bool isSaidAsOne(const QWidget& widget) {
  const auto role = givenRole(widget);
  return (role == QAccessible::ListItem || role == QAccessible::StaticText ||
          role == QAccessible::Notification) &&
         !widget.accessibleName().isEmpty();
}

void collectParts(const QWidget& widget, QWidgetList& parts) {
  for (auto* const child : widget.children()) {
    auto* const part = qobject_cast<QWidget*>(child);
    if (part == nullptr || part->isWindow() || isHidden(*part)) continue;
    if (isPassedOver(*part)) {
      collectParts(*part, parts);
    } else {
      parts << part;
    }
  }
}

QWidgetList partsOf(const QWidget& widget) {
  QWidgetList parts;
  if (!isSaidAsOne(widget)) collectParts(widget, parts);
  return parts;
}

class LabelPart : public AccessiblePart {
 public:
  explicit LabelPart(QLabel* label) : AccessiblePart(*label, QAccessible::StaticText) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    const QString given = AccessiblePart::text(kind);
    if (kind != QAccessible::Name || !given.isEmpty()) return given;
    return qobject_cast<const QLabel*>(widget())->text();
  }
};

/// Asked for the class of each object, from its own up to QWidget, until one is answered.
QAccessibleInterface* makePart(const QString& className, QObject* object) {
  auto* const widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr) return nullptr;
  if (className == QLatin1String("mirvane::TextLabel")) {
    return new LabelPart(qobject_cast<QLabel*>(widget));
  }
  if (className == QLatin1String("mirvane::ScrollColumn")) {
    return new AccessiblePart(*widget, QAccessible::Grouping);
  }
  if (className != QLatin1String("QWidget")) return nullptr;
  return new AccessiblePart(*widget,
                            widget->isWindow() ? QAccessible::Window : QAccessible::Grouping);
}

}  // namespace

AccessiblePart::AccessiblePart(QWidget& widget, QAccessible::Role role)
    : QAccessibleWidget(&widget, role) {}

QAccessible::Role AccessiblePart::role() const {
  return givenRole(*widget()).value_or(QAccessibleWidget::role());
}

QAccessible::State AccessiblePart::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  // A screen that hands its focus on to a field does not have it as well.
  state.focused = QApplication::focusWidget() == widget();
  state.focusable = state.focusable && widget()->focusProxy() == nullptr;
  return state;
}

QAccessibleInterface* AccessiblePart::parent() const {
  if (widget()->isWindow()) return QAccessibleWidget::parent();
  QWidget* above = widget()->parentWidget();
  while (isPassedOver(*above)) above = above->parentWidget();
  return QAccessible::queryAccessibleInterface(above);
}

int AccessiblePart::childCount() const {
  return static_cast<int>(partsOf(*widget()).size());
}

QAccessibleInterface* AccessiblePart::child(int index) const {
  return QAccessible::queryAccessibleInterface(partsOf(*widget()).value(index));
}

int AccessiblePart::indexOfChild(const QAccessibleInterface* child) const {
  if (child == nullptr) return -1;
  return static_cast<int>(partsOf(*widget()).indexOf(qobject_cast<QWidget*>(child->object())));
}

QAccessibleInterface* AccessiblePart::focusChild() const {
  auto* const focused = QApplication::focusWidget();
  const bool isHere = focused != nullptr && widget()->isAncestorOf(focused);
  return isHere ? QAccessible::queryAccessibleInterface(focused) : nullptr;
}

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
  widget.setProperty(roleProperty, static_cast<int>(role));
}

void hideFromAssistiveTechnology(QWidget& widget) {
  setAccessibleRole(widget, QAccessible::NoRole);
}

void installAccessibleParts() {
  QAccessible::installFactory(makePart);
}

}  // namespace mirvane
