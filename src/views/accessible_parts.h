#pragma once

#include <QAccessibleWidget>

class QWidget;

namespace mirvane {

/// What the screens are to assistive technology: headings, lists and texts in place of the widgets
/// that lay them out. A widget that only lays out others is passed over, and what stands in it
/// belongs to the next part above.

/// Makes a widget a part of this role, named by its accessible name. A list item or a text with a
/// name is said as one: what stands in it is passed over.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

/// For drawings that say nothing, or what a text beside them says.
void hideFromAssistiveTechnology(QWidget& widget);

/// To be called once, when the application object is there.
void installAccessibleParts();

/// A widget of the screens as assistive technology sees it. Its children and its parent are the
/// nearest parts below and above.
class AccessiblePart : public QAccessibleWidget {
 public:
  /// `role` is that of a widget which has been given none.
  AccessiblePart(QWidget& widget, QAccessible::Role role);

  [[nodiscard]] QAccessible::Role role() const override;
  [[nodiscard]] QAccessible::State state() const override;
  [[nodiscard]] QAccessibleInterface* parent() const override;
  [[nodiscard]] int childCount() const override;
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
  [[nodiscard]] QAccessibleInterface* focusChild() const override;
};

}  // namespace mirvane
