#include "views/study_dialog.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollArea>
#include <algorithm>
#include <utility>

#include "views/bordered_button.h"
#include "views/layouts.h"
#include "views/press_guard.h"
#include "views/scroll_keys.h"
#include "views/symbol.h"
#include "views/text_label.h"
#include "views/theme.h"
#include "views/window_frame.h"

namespace mirvane {
namespace {

constexpr int edge = 24;
/// Between the choices: a hand that slips off one does not land on the next.
constexpr int choiceGap = 16;
constexpr int choiceHeight = 50;

}  // namespace

StudyDialog::StudyDialog(const Content& content, QWidget* asker)
    : QDialog(asker), texts_(new QScrollArea(this)), choices_(makeColumn(choiceGap)) {
  setAttribute(Qt::WA_DeleteOnClose);
  asker->installEventFilter(this);
  setWindowModality(Qt::WindowModal);
  setWindowTitle(content.title);
  setAccessibleName(content.title);
  setAccessibleDescription(content.text);

  texts_->setObjectName(QStringLiteral("dialogTexts"));
  texts_->setWidget(makeTexts(content));
  texts_->setWidgetResizable(true);
  texts_->setFrameShape(QFrame::NoFrame);
  texts_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  texts_->setFocusPolicy(Qt::NoFocus);

  auto* const column = makeColumn(choiceGap, this);
  column->setContentsMargins(edge, edge, edge, edge);
  column->addWidget(texts_, 1);
  column->addLayout(choices_);
}

QWidget* StudyDialog::makeTexts(const Content& content) {
  auto* const texts = new QWidget(this);
  auto* const column = makeColumn(10, texts);
  column->addWidget(new Symbol(content.symbol, 24, theme::Tone::warning, texts));
  auto* const title = new TextLabel(content.title, 18, QFont::Bold, theme::Tone::primary, texts);
  title->setObjectName(QStringLiteral("dialogTitle"));
  column->addWidget(title);
  auto* const text = new TextLabel(content.text, 14, QFont::Normal, theme::Tone::primary, texts);
  text->setObjectName(QStringLiteral("dialogText"));
  column->addWidget(text);
  column->addStretch(1);
  return texts;
}

QAbstractButton* StudyDialog::addChoice(const QString& text, ChoiceRole role,
                                        std::function<void()> action) {
  const bool isSafe = role == ChoiceRole::safe;
  auto* const button = new BorderedButton(text, isSafe ? theme::deep() : QColor(), this);
  // Return presses the button that has the focus, and no other.
  button->setAutoDefault(false);
  button->setFixedHeight(choiceHeight);
  button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  scrollByKeys(*texts_, *button);
  choices_->addWidget(button);
  if (isSafe) {
    safeAction_ = action;
    button->setFocus();
  }
  connect(button, &QPushButton::clicked, this,
          [this, action = std::move(action)] { choose(action); });
  return button;
}

void StudyDialog::choose(const std::function<void()>& action) {
  done(Accepted);
  if (action) action();
}

void StudyDialog::reject() {
  QDialog::reject();
  if (safeAction_) safeAction_();
}

bool StudyDialog::eventFilter(QObject* watched, QEvent* event) {
  // A window that is minimized comes back with its question: that is a spontaneous event.
  if (watched == parent() && event->type() == QEvent::Hide && !event->spontaneous()) done(Rejected);
  return QDialog::eventFilter(watched, event);
}

void StudyDialog::showEvent(QShowEvent* event) {
  fitTheScreen();
  QDialog::showEvent(event);
  guardPresses(*this);
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void StudyDialog::keyPressEvent(QKeyEvent* event) {
  // No button is the default one: Return elsewhere than on a button presses none.
  if (event->key() == Qt::Key_Escape) QDialog::keyPressEvent(event);
}

void StudyDialog::fitTheScreen() {
  constexpr int comfortableWidth = 480;
  const QSize room = roomOnScreen(*this);
  const int width = std::min(comfortableWidth, room.width());
  const int wanted = texts_->widget()->layout()->totalHeightForWidth(width - 2 * edge);
  const int rest = 2 * edge + choiceGap + choices_->sizeHint().height();
  setMinimumSize(0, 0);
  setFixedWidth(width);
  setFixedHeight(std::min(wanted + rest, room.height()));
}

}  // namespace mirvane
