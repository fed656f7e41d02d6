#include "views/practice_view.h"

#include <QHideEvent>
#include <QShowEvent>

#include "capture/cycle_key_monitor.h"
#include "platform/key_codes.h"
#include "views/accessible_parts.h"
#include "views/announcer.h"
#include "views/bar.h"
#include "views/checklist_row.h"
#include "views/divider.h"
#include "views/field_frame.h"
#include "views/first_focus.h"
#include "views/layouts.h"
#include "views/mirvane_info_card.h"
#include "views/mirvane_page_header.h"
#include "views/mirvane_primary_button.h"
#include "views/practice_demonstration.h"
#include "views/scroll_column.h"
#include "views/scroll_keys.h"
#include "views/section_heading.h"
#include "views/suggestion_bar.h"
#include "views/theme.h"
#include "views/typing_keeper.h"

namespace mirvane {

PracticeView::PracticeView(const Inputs& inputs, QWidget* parent)
    : QWidget(parent),
      inputs_(inputs),
      practiceEngine_(inputs.services),
      announcer_(new Announcer(this)),
      engineAnnouncements_(practiceEngine_, announcer_->announcements(), announcer_->pauseOfKeys()),
      field_(new QLineEdit(this)) {
  auto* const suggestions =
      new SuggestionBar(practiceEngine_, inputs_.sky, SuggestionBar::Placement::inColumn, this);
  connect(suggestions, &SuggestionBar::chosen, this, &PracticeView::apply);

  auto* const scroll = new ScrollColumn(12, this);
  scroll->column().addWidget(
      new PracticeDemonstration(inputs_.practicePrompt, inputs_.deep, inputs_.sky, this));
  scroll->column().addWidget(makeField());
  scroll->column().addWidget(suggestions);
  scroll->column().addWidget(makeChecklist());
  scroll->column().addStretch(1);

  auto* const column = makeColumn(0, this);
  column->addWidget(new MirvanePageHeader(tr("Practice: Cycle Key"),
                                          tr("Try the controls before the real sessions"), this));
  column->addWidget(scroll, 1);
  column->addWidget(new Divider(Qt::Horizontal, this));
  column->addWidget(makeStartBar());
  new TypingKeeper(*this, *field_);
  scrollByKeys(*scroll, *start_);
  giveFirstFocus(*this, *field_);
}

QWidget* PracticeView::makeField() {
  constexpr int minimumFieldHeight = 44;
  field_->setObjectName(QStringLiteral("practiceField"));
  field_->setPlaceholderText(tr("Type a single word"));
  field_->setAccessibleName(tr("Type a single word"));
  field_->setFont(theme::font(15));
  field_->setFrame(false);
  connect(field_, &QLineEdit::textChanged, this, [this] { updateChecklist(); });
  auto* const frame = new FieldFrame(field_, inputs_.sky, this);
  frame->setMinimumHeight(minimumFieldHeight);
  return frame;
}

QWidget* PracticeView::makeChecklist() {
  auto* const card = new MirvaneInfoCard(inputs_.sky, this);
  card->content().addWidget(new SectionHeading(tr("Checklist"), {}, {}, card));
  auto* const list = new QWidget(card);
  setAccessibleRole(*list, QAccessible::List);
  list->setAccessibleName(tr("Checklist"));
  auto* const rows = makeColumn(10, list);
  card->content().addWidget(list);
  const auto add = [this, list, rows](const QString& text, const char* name) {
    auto* const row = new ChecklistRow(text, list);
    connect(row, &ChecklistRow::becameDone, this,
            [this](const QString& statement) { announcer_->announcements().say(statement); });
    row->setObjectName(QLatin1String(name));
    rows->addWidget(row);
    return row;
  };
  typeWord_ = add(tr("Type one word"), "didTypeWord");
  pressSpace_ = add(tr("Press Space"), "didPressSpace");
  cycleSuggestion_ = add(tr("Use Right Option ⌥"), "didCycleSuggestion");
  return card;
}

QWidget* PracticeView::makeStartBar() {
  auto* const bar = new Bar(this);
  start_ = new MirvanePrimaryButton(tr("Start Session 1"), QStringLiteral("arrow.right"),
                                    inputs_.deep, inputs_.onNext, bar);
  start_->setObjectName(QStringLiteral("startSessionButton"));
  start_->setAccessibleDescription(tr("Enabled when the three steps of the checklist are done"));
  start_->setEnabled(false);
  auto* const column = makeColumn(0, bar);
  column->setContentsMargins(24, 16, 24, 16);
  column->addWidget(start_);
  return bar;
}

void PracticeView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!event->spontaneous()) appear();
}

void PracticeView::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (!event->spontaneous()) disappear();
}

void PracticeView::appear() {
  practiceEngine_.startTracking();
  installCycleKeyMonitor(inputs_.monitors, inputs_.tasks, inputs_.cycleKeyMonitor,
                         lifetime_.guard([this] { cycle(); }));
  if (!keyMonitor_) installSpaceMonitor();
  field_->setFocus();
  updateChecklist();
}

void PracticeView::disappear() {
  removeCycleKeyMonitor(inputs_.monitors, inputs_.cycleKeyMonitor);
  if (keyMonitor_) inputs_.monitors.removeMonitor(*keyMonitor_);
  keyMonitor_.reset();
  practiceEngine_.stopTracking();
}

void PracticeView::installSpaceMonitor() {
  const auto pressed = lifetime_.guard([this] {
    pressSpace_->setDone();
    updateChecklist();
  });
  keyMonitor_ = inputs_.monitors.addLocalMonitor(
      EventMask::keyDown, [&tasks = inputs_.tasks, pressed](const InputEvent& event) {
        if (event.keyCode == keycode::space) tasks.post(pressed);
      });
}

void PracticeView::cycle() {
  practiceEngine_.typingViewModel().suggestionCycler().cycle();
  practiceEngine_.refreshSuggestions();
  updateChecklist();
}

void PracticeView::apply(const QString& suggestion) {
  // A chip pressed by key has the focus itself: the engine must find the field focused.
  field_->setFocus();
  practiceEngine_.typingViewModel().applySuggestion(suggestion.toStdString());
  practiceEngine_.refreshSuggestions();
}

void PracticeView::updateChecklist() {
  const QString text = field_->text();
  if (!text.trimmed().isEmpty()) typeWord_->setDone();
  if (text.contains(u' ')) pressSpace_->setDone();
  if (practiceEngine_.measurements().cycleKeyCount >= 1) cycleSuggestion_->setDone();
  start_->setEnabled(typeWord_->isDone() && pressSpace_->isDone() && cycleSuggestion_->isDone());
}

}  // namespace mirvane
