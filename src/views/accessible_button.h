#pragma once

#include "views/accessible_parts.h"

namespace mirvane {

class RoundedButton;

/// A button as assistive technology sees it: one that is not ready is told to be disabled, though
/// it keeps the focus, and takes no press.
class AccessibleButton : public AccessiblePart {
 public:
  explicit AccessibleButton(RoundedButton& button);

  /// From now on every `RoundedButton` is seen in this way.
  static void install();

  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  [[nodiscard]] QAccessible::State state() const override;
  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString& actionName) override;

 private:
  [[nodiscard]] RoundedButton& button() const;
};

}  // namespace mirvane
