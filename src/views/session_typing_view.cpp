#include "views/session_typing_view.h"

#include <QAbstractButton>
#include <QHideEvent>
#include <QShowEvent>
#include <utility>

#include "capture/cycle_key_monitor.h"
#include "views/accessible_parts.h"
#include "views/announcer.h"
#include "views/bar.h"
#include "views/bordered_button.h"
#include "views/divider.h"
#include "views/field_frame.h"
#include "views/first_focus.h"
#include "views/information_strip.h"
#include "views/layouts.h"
#include "views/mirvane_primary_button.h"
#include "views/mirvane_rule_row.h"
#include "views/rounded_card.h"
#include "views/scroll_column.h"
#include "views/section_heading.h"
#include "views/suggestion_bar.h"
#include "views/text_label.h"
#include "views/theme.h"
#include "views/typing_keeper.h"

namespace mirvane {
namespace {

QString headerText(bool hasCycleKey) {
  return hasCycleKey
             ? QObject::tr("This session uses Space and Right Option ⌥ to cycle suggestions")
             : QObject::tr("This session uses Space for auto-correction only");
}

InformationStrip* makeStrip(bool hasCycleKey, const QColor& accent, QWidget* parent) {
  if (!hasCycleKey) {
    return new InformationStrip(
        QObject::tr("Right Option is not used in this session."),
        {QObject::tr("Type naturally. Mirvane will automatically correct spacing errors.")}, accent,
        parent);
  }
  return new InformationStrip(
      QObject::tr("Right Option is used in this session."),
      {QObject::tr("Type naturally. Mirvane will show suggestions with Space and cycle them with "
                   "Right Option ⌥."),
       QObject::tr("On this keyboard: the right Alt key")},
      accent, parent);
}

}  // namespace

SessionTypingView::SessionTypingView(Inputs inputs, QWidget* parent)
    : QWidget(parent),
      inputs_(std::move(inputs)),
      accent_(hasCycleKey() ? inputs_.sky : inputs_.deep),
      announcer_(new Announcer(this)),
      engineAnnouncements_(inputs_.engine, announcer_->announcements(), announcer_->pauseOfKeys()) {
  // Made in the order in which the eye and the Tab key go through them.
  auto* const column = makeColumn(0, this);
  column->addWidget(makeHeader());
  column->addWidget(new Divider(Qt::Horizontal, this));
  column->addWidget(makeStrip(hasCycleKey(), accent_, this));
  auto* const scroll = new ScrollColumn(14, this);
  scroll->column().addWidget(makeNotice());
  scroll->column().addWidget(makePromptCard());
  scroll->column().addWidget(makeField(), 1);
  column->addWidget(scroll, 1);
  auto* const suggestions =
      new SuggestionBar(inputs_.engine, accent_, SuggestionBar::Placement::acrossScreen, this);
  connect(suggestions, &SuggestionBar::chosen, this, &SessionTypingView::apply);
  column->addWidget(suggestions);
  column->addWidget(new Divider(Qt::Horizontal, this));
  column->addWidget(makeDoneBar());
  new TypingKeeper(*this, *field_);
  giveFirstFocus(*this, *field_);

  typedTextSubscription_ = inputs_.typedText.subscribe([this] { showTypedText(); });
  showTypedText();
}

QWidget* SessionTypingView::makeHeader() {
  auto* const header = new Bar(this);
  auto* const title = new TextLabel(tr("Session %1").arg(inputs_.sessionNumber), 15,
                                    QFont::DemiBold, theme::Tone::primary, header);
  title->setObjectName(QStringLiteral("pageTitle"));
  title->setHeading();
  title->setAccent(accent_);
  auto* const texts = makeColumn(2);
  texts->addWidget(title);
  texts->addWidget(
      new TextLabel(headerText(hasCycleKey()), 11, QFont::Normal, theme::Tone::secondary, header));
  auto* const resetButton = new BorderedButton(tr("Reset"), {}, header);
  resetButton->setObjectName(QStringLiteral("resetButton"));
  resetButton->setAccessibleDescription(tr("Empties the text and starts this session anew"));
  connect(resetButton, &QPushButton::clicked, this, &SessionTypingView::reset);

  auto* const row = makeRow(12, header);
  row->setContentsMargins(24, 12, 24, 12);
  row->addLayout(texts, 1);
  row->addWidget(resetButton, 0, Qt::AlignVCenter);
  return header;
}

QWidget* SessionTypingView::makeNotice() {
  auto* const notice = new MirvaneRuleRow(QStringLiteral("keyboard"),
                                          otherProgramsNotice(inputs_.otherPrograms), this);
  notice->setObjectName(QStringLiteral("otherProgramsNotice"));
  setAccessibleRole(*notice, QAccessible::StaticText);
  return notice;
}

QWidget* SessionTypingView::makePromptCard() {
  auto* const holder = new QWidget(this);
  auto* const labels = makeRow(12);
  labels->addWidget(new SectionHeading(tr("Sentence to type"), QStringLiteral("text.quote"),
                                       {.pointSize = 12,
                                        .symbolTone = theme::Tone::secondary,
                                        .textTone = theme::Tone::secondary},
                                       holder),
                    1);
  labels->addWidget(
      new SectionHeading(tr("No Backspace"), QStringLiteral("exclamationmark.triangle.fill"),
                         {.pointSize = 11, .textTone = theme::Tone::warning}, holder));

  auto* const card = new RoundedCard({.color = accent_}, holder);
  auto* const prompt = new TextLabel(inputs_.prompt, 18, QFont::Normal, theme::Tone::primary, card);
  prompt->setObjectName(QStringLiteral("prompt"));
  auto* const content = makeColumn(0, card);
  content->setContentsMargins(16, 14, 16, 14);
  content->addWidget(prompt);

  auto* const column = makeColumn(8, holder);
  column->addLayout(labels);
  column->addWidget(card);
  return holder;
}

QWidget* SessionTypingView::makeField() {
  constexpr int minimumFieldHeight = 110;
  field_ = new QPlainTextEdit(this);
  field_->setObjectName(QStringLiteral("typingField"));
  field_->setAccessibleName(tr("Type the sentence here"));
  field_->setAccessibleDescription(inputs_.prompt);
  field_->setFont(theme::font(16));
  field_->setFrameShape(QFrame::NoFrame);
  field_->setTabChangesFocus(true);
  connect(field_, &QPlainTextEdit::textChanged, this,
          [this] { inputs_.typedText.set(field_->toPlainText().toStdString()); });
  auto* const frame = new FieldFrame(field_, accent_, this);
  frame->setMinimumHeight(minimumFieldHeight);
  frame->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  return frame;
}

QWidget* SessionTypingView::makeDoneBar() {
  const bool isFirst = inputs_.sessionNumber == 1;
  auto* const bar = new Bar(this);
  auto* const done = new MirvanePrimaryButton(
      isFirst ? tr("Done — Continue to Session 2") : tr("Done — See Results"),
      isFirst ? QStringLiteral("arrow.right") : QStringLiteral("checkmark"), accent_,
      [this] { finish(); }, bar);
  done->setObjectName(QStringLiteral("doneButton"));
  done->setAccessibleDescription(tr("Ends this session"));
  auto* const column = makeColumn(0, bar);
  column->setContentsMargins(24, 16, 24, 16);
  column->addWidget(done);
  return bar;
}

void SessionTypingView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!event->spontaneous()) appear();
}

void SessionTypingView::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (!event->spontaneous()) disappear();
}

void SessionTypingView::appear() {
  field_->setFocus();
  inputs_.engine.startTracking();
  if (!hasCycleKey()) return;
  installCycleKeyMonitor(inputs_.monitors, inputs_.tasks, *inputs_.cycleKeyMonitor,
                         lifetime_.guard([this] { cycle(); }));
}

void SessionTypingView::disappear() {
  if (emptyFieldQuestion_ != nullptr) emptyFieldQuestion_->close();
  if (hasCycleKey()) removeCycleKeyMonitor(inputs_.monitors, *inputs_.cycleKeyMonitor);
  inputs_.engine.stopTracking();
}

void SessionTypingView::cycle() {
  inputs_.engine.typingViewModel().suggestionCycler().cycle();
  inputs_.engine.refreshSuggestions();
}

void SessionTypingView::apply(const QString& suggestion) {
  // A chip pressed by key has the focus itself: the engine must find the field focused.
  field_->setFocus();
  inputs_.engine.typingViewModel().applySuggestion(suggestion.toStdString());
  inputs_.engine.refreshSuggestions();
}

void SessionTypingView::reset() {
  inputs_.engine.reset();
  inputs_.typedText.set({});
  field_->setFocus();
}

void SessionTypingView::finish() {
  if (!field_->toPlainText().trimmed().isEmpty()) return inputs_.onDone();
  if (emptyFieldQuestion_ == nullptr) askAboutEmptyField();
}

void SessionTypingView::askAboutEmptyField() {
  emptyFieldQuestion_ = new StudyDialog(
      {QStringLiteral("exclamationmark.triangle.fill"), tr("You have not typed anything yet."),
       tr("Keep typing to write the sentence into the field. If you go on now, this session stays "
          "empty.")},
      this);
  emptyFieldQuestion_->setObjectName(QStringLiteral("emptyFieldQuestion"));
  emptyFieldQuestion_
      ->addChoice(tr("Keep typing"), StudyDialog::ChoiceRole::safe, [this] { field_->setFocus(); })
      ->setObjectName(QStringLiteral("keepTypingButton"));
  emptyFieldQuestion_
      ->addChoice(tr("Go on without typing"), StudyDialog::ChoiceRole::other, inputs_.onDone)
      ->setObjectName(QStringLiteral("goOnButton"));
  emptyFieldQuestion_->open();
}

void SessionTypingView::showTypedText() {
  const auto text = QString::fromStdString(*inputs_.typedText);
  if (field_->toPlainText() == text) return;
  field_->setPlainText(text);
  field_->moveCursor(QTextCursor::End);
}

}  // namespace mirvane
