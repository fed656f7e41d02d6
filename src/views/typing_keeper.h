#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include "views/rounded_button.h"
#include "views/text_label.h"

namespace mirvane {

/// Object name of the timer that makes a button chosen.
inline constexpr const char* focusRestTimer = "focusRest";

/// Keeps typing in the text field of a screen. When the focus has left the field, by a stray Tab
/// say, the next letter or Space goes on into it: the field takes the focus before anybody sees the
/// key.
///
/// Buttons can still be worked by keyboard: Return presses the one with the focus at once, Space
/// once the focus has rested there, which is taken for a choice. A hint beside the button says so.
class TypingKeeper : public QObject {
  Q_OBJECT

 public:
  /// `field` is a part of `screen`, which owns the keeper.
  TypingKeeper(QWidget& screen, QWidget& field);

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  [[nodiscard]] bool isForField(const QKeyEvent& event) const;
  void followFocus(QWidget* focus);
  void showHint();
  void placeHint();

  QWidget& screen_;
  QWidget& field_;
  TextLabel* hint_;
  QPointer<RoundedButton> button_;  ///< the one with the focus
  bool isChosen_ = false;
  QTimer rest_;
};

}  // namespace mirvane
