#include "views/accessible_button.h"

#include "views/rounded_button.h"

namespace mirvane {
namespace {

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
  auto* const button = qobject_cast<RoundedButton*>(object);
  return button != nullptr ? new AccessibleButton(*button) : nullptr;
}

}  // namespace

AccessibleButton::AccessibleButton(RoundedButton& button)
    : AccessiblePart(button, QAccessible::Button) {}

void AccessibleButton::install() {
  QAccessible::installFactory(makeInterface);
}

RoundedButton& AccessibleButton::button() const {
  return static_cast<RoundedButton&>(*widget());
}

QString AccessibleButton::text(QAccessible::Text kind) const {
  const QString text = AccessiblePart::text(kind);
  if (kind == QAccessible::Name && text.isEmpty()) return button().text();
  if (kind != QAccessible::Description || button().keyboardHint().isEmpty()) return text;
  return text.isEmpty() ? button().keyboardHint()
                        : QStringLiteral("%1. %2").arg(text, button().keyboardHint());
}

QAccessible::State AccessibleButton::state() const {
  QAccessible::State state = AccessiblePart::state();
  state.disabled = state.disabled || !button().isReady();
  state.pressed = button().isDown();
  return state;
}

QStringList AccessibleButton::actionNames() const {
  QStringList names = AccessiblePart::actionNames();
  if (!state().disabled) names.prepend(pressAction());
  return names;
}

void AccessibleButton::doAction(const QString& actionName) {
  if (actionName != pressAction()) return AccessiblePart::doAction(actionName);
  if (!state().disabled) button().animateClick();
}

}  // namespace mirvane
