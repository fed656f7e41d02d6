#include "views/typing_keeper.h"

#include <QApplication>
#include <QWindow>
#include <algorithm>

namespace mirvane {
namespace {

/// Longer than the pause between two keys of a participant who types ten words a minute (1.2 s), so
/// that a Space that belongs to the text comes sooner; short enough to wait for.
constexpr int restMilliseconds = 1500;

/// Whether the key types a character, rather than being a command.
bool isTyping(const QKeyEvent& event) {
  constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if (event.text().isEmpty() || (event.modifiers() & commands) != 0) return false;
  return event.text().front().category() != QChar::Other_Control;
}

TextLabel* makeHint(QWidget& screen) {
  constexpr int margin = 8;
  auto* const hint = new TextLabel({}, 13, QFont::Medium, theme::Tone::primary, &screen);
  hint->setObjectName(QStringLiteral("keyboardHint"));
  hint->setWordWrap(false);
  hint->setMargin(margin);
  // The colours of the screen, exchanged.
  hint->setAutoFillBackground(true);
  hint->setBackgroundRole(QPalette::WindowText);
  hint->setForegroundRole(QPalette::Window);
  hint->setAttribute(Qt::WA_TransparentForMouseEvents);
  hint->hide();
  return hint;
}

}  // namespace

TypingKeeper::TypingKeeper(QWidget& screen, QWidget& field)
    : QObject(&screen), screen_(screen), field_(field), hint_(makeHint(screen)), rest_(this) {
  rest_.setObjectName(QLatin1String(focusRestTimer));
  rest_.setSingleShot(true);
  connect(&rest_, &QTimer::timeout, this, [this] {
    isChosen_ = true;
    showHint();
  });
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* focus) {
    // One that is being destroyed is no such button any more.
    if (auto* const left = qobject_cast<RoundedButton*>(before)) left->setKeyboardHint({});
    followFocus(focus);
  });
  // Installed last, it sees a key before those who report it as typing.
  qApp->installEventFilter(this);
}

bool TypingKeeper::eventFilter(QObject* receiver, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !screen_.isVisible()) return false;
  if (receiver != screen_.window()->windowHandle()) return false;
  if (isForField(static_cast<const QKeyEvent&>(*event))) field_.setFocus();
  return false;
}

bool TypingKeeper::isForField(const QKeyEvent& event) const {
  const auto* const focus = QApplication::focusWidget();
  const bool isElsewhere = focus != nullptr && !screen_.isAncestorOf(focus);
  if (isElsewhere || focus == &field_ || !isTyping(event)) return false;
  return event.key() != Qt::Key_Space || !isChosen_;
}

void TypingKeeper::followFocus(QWidget* focus) {
  auto* const button = qobject_cast<RoundedButton*>(focus);
  button_ = button != nullptr && screen_.isAncestorOf(button) ? button : nullptr;
  isChosen_ = false;
  rest_.stop();
  if (button_ != nullptr) {
    rest_.start(restMilliseconds);
    button_->setKeyboardHint(tr("Return presses this button. Letters go on into your text."));
  }
  showHint();
}

void TypingKeeper::showHint() {
  hint_->setVisible(button_ != nullptr);
  if (button_ == nullptr) return;
  hint_->setText(isChosen_
                     ? tr("Return or Space presses this button. Letters go on into your text.")
                     : button_->keyboardHint());
  placeHint();
}

void TypingKeeper::placeHint() {
  constexpr int gap = 6;
  hint_->adjustSize();
  const QRect button(button_->mapTo(&screen_, QPoint(0, 0)), button_->size());
  const int above = button.top() - gap - hint_->height();
  const int left =
      std::min(button.center().x() - hint_->width() / 2, screen_.width() - gap - hint_->width());
  // With no room above, it stands where the text ends last, and covers no other.
  const int fieldEnd = field_.mapTo(&screen_, QPoint(0, field_.height())).y();
  hint_->move(std::max(left, gap), above >= gap ? above : fieldEnd - hint_->height());
  hint_->raise();
}

}  // namespace mirvane
