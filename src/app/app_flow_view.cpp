#include "app/app_flow_view.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPlainTextEdit>

#include "app/closing.h"
#include "capture/cycle_key_monitor.h"
#include "text/date_format.h"
#include "views/accessibility_required_gate_view.h"
#include "views/divider.h"
#include "views/intro_view.h"
#include "views/layouts.h"
#include "views/mirvane_step_sidebar.h"
#include "views/practice_view.h"
#include "views/press_guard.h"
#include "views/results_view.h"
#include "views/session_typing_view.h"
#include "views/study_dialog.h"
#include "views/theme.h"
#include "views/window_frame.h"

namespace mirvane {
namespace {

constexpr int refreshMilliseconds = 1000;
constexpr const char* practicePrompt = "helo";
/// With the time that writing takes, what is kept is at most a second behind.
constexpr int keepMilliseconds = 500;

StudyHeader headerOf(const AppFlowView::Services& services) {
  auto header = services.header;
  header.prompts = services.study.prompts;
  if (!services.study.participant.empty()) header.participant = services.study.participant;
  return header;
}

QString nameOf(std::int64_t step) {
  if (step == StudyKeeping::results) return QObject::tr("Results");
  return QObject::tr("Session %1").arg(step == StudyKeeping::session1 ? 1 : 2);
}

}  // namespace

AppFlowView::AppFlowView(const Services& services, QWidget* parent)
    : QWidget(parent),
      services_(services),
      saver_({services.study.contactAddress, services.savePanel, services.files, services.clock,
              [this] { noteSaved(); }}),
      engine1_(services.engine),
      engine2_(services.engine),
      keeping_({services.monitors, services.tasks, services.clock}, headerOf(services),
               services.journal, {{{engine1_, typedText1_}, {engine2_, typedText2_}}}),
      hasAccessibilityAccess_(services.accessibility.isProcessTrusted()),
      studyOrGate_(new QStackedLayout(this)) {
  constexpr QSize minimumFrame(760, 600);
  keepOnScreen(*this, minimumFrame);
  makeStudy();
  gate_ = new AccessibilityRequiredGateView(
      services_.accessibility, services_.workspace, services_.otherPrograms, theme::deep(),
      [this] { save(); }, this);
  studyOrGate_->addWidget(gate_);
  showStudyOrGate();
  refreshTimer_.setTimerType(Qt::CoarseTimer);
  connect(&refreshTimer_, &QTimer::timeout, this, &AppFlowView::pollPermission);
  refreshTimer_.start(refreshMilliseconds);
  keepTimer_.setSingleShot(true);
  keepTimer_.setInterval(keepMilliseconds);
  connect(&keepTimer_, &QTimer::timeout, this, [this] { keeping_.keep(); });
  keeping_.onChange = [this] {
    if (!keepTimer_.isActive()) keepTimer_.start();
  };
  if (keeping_.found() != nullptr) QTimer::singleShot(0, this, &AppFlowView::offerToTakeUp);
}

AppFlowView::~AppFlowView() {
  // The screens use the engines, which are members: they go first. Hidden, they stop watching keys.
  screen_->hide();
  delete screen_;
  removeCycleKeyMonitor(services_.monitors, cycleKeyMonitor_);
}

void AppFlowView::makeStudy() {
  auto* const study = new QWidget(this);
  study_ = makeRow(0, study);
  sidebar_ = new MirvaneStepSidebar(step_, theme::deep(), study);
  study_->addWidget(sidebar_);
  study_->addWidget(new Divider(Qt::Vertical, study));
  studyOrGate_->addWidget(study);
  showStep();
}

void AppFlowView::advance() {
  const auto next = stepAfter(step_);
  if (!next) return;
  step_ = *next;
  showStep();
  keeping_.stepChanged(static_cast<std::int64_t>(step_));
}

void AppFlowView::offerToTakeUp() {
  const auto& study = keeping_.found()->study;
  auto* const offer =
      new StudyDialog({QStringLiteral("arrow.2.circlepath"), tr("Your study is not finished yet"),
                       tr("You stopped in “%1” on %2, before your typing was saved. You can go on "
                          "where you were.\n\n"
                          "If you start afresh, what you typed then is deleted.")
                           .arg(nameOf(study.step),
                                QString::fromStdString(text::mediumDateShortTime(study.savedAt)))},
                      this);
  offer->setObjectName(QStringLiteral("takeUpOffer"));
  offer->addChoice(tr("Continue where you stopped"), StudyDialog::ChoiceRole::safe,
                   [this] { takeUp(); });
  offer->addChoice(tr("Start afresh and delete what was typed"), StudyDialog::ChoiceRole::other,
                   [this] { keeping_.startAfresh(); });
  offer->open();
}

void AppFlowView::takeUp() {
  const auto step = appStepFromRawValue(keeping_.takeUp());
  if (!step) return;
  step_ = *step;
  showStep();
  connect(qApp, &QApplication::focusChanged, this, &AppFlowView::resumeTyping);
  resumeTyping();
}

/// Once the field has the focus there are suggestions again for the word at the caret.
void AppFlowView::resumeTyping() {
  if (qobject_cast<QPlainTextEdit*>(QApplication::focusWidget()) == nullptr) return;
  disconnect(qApp, &QApplication::focusChanged, this, &AppFlowView::resumeTyping);
  (step_ == AppStep::session1 ? engine1_ : engine2_).resume();
}

void AppFlowView::showStep() {
  // The old screen may be the one whose button is being pressed: it goes once that is over.
  const bool replacesAnother = screen_ != nullptr;
  if (replacesAnother) {
    screen_->hide();
    screen_->deleteLater();
  }
  screen_ = makeScreen();
  study_->addWidget(screen_, 1);
  sidebar_->setCurrentStep(step_);
  screen_->show();
  screen_->setFocus();
  if (replacesAnother) guardPresses(*screen_);
}

QWidget* AppFlowView::makeScreen() {
  const auto onNext = [this] { advance(); };
  switch (step_) {
    case AppStep::intro:
      return new IntroView(onNext, theme::deep(), theme::sky(), services_.warnings);
    case AppStep::practice:
      return new PracticeView({services_.practice, cycleKeyMonitor_, services_.monitors,
                               services_.tasks, QString::fromLatin1(practicePrompt), onNext,
                               theme::deep(), theme::sky()});
    case AppStep::session1:
      return makeSession(1);
    case AppStep::session2:
      return makeSession(2);
    case AppStep::results:
      break;
  }
  return makeResults();
}

QWidget* AppFlowView::makeSession(int number) {
  const bool isFirst = number == 1;
  return new SessionTypingView({number, QString::fromStdString(promptOf(number)),
                                isFirst ? engine1_ : engine2_, isFirst ? typedText1_ : typedText2_,
                                isFirst ? nullptr : &cycleKeyMonitor_, services_.monitors,
                                services_.tasks, [this] { advance(); }, services_.otherPrograms,
                                theme::deep(), theme::sky()});
}

QWidget* AppFlowView::makeResults() {
  results_ = new ResultsView({makeSnapshot(1), makeSnapshot(2), saver_, services_.workspace});
  return results_;
}

SessionSnapshot AppFlowView::makeSnapshot(int number) const {
  const bool isFirst = number == 1;
  const auto& engine = isFirst ? engine1_ : engine2_;
  return makeSessionSnapshot(number, promptOf(number), isFirst ? *typedText1_ : *typedText2_,
                             engine, engine.elapsed());
}

void AppFlowView::pollPermission() {
  const bool isTrusted = services_.accessibility.isProcessTrusted();
  if (isTrusted == hasAccessibilityAccess_) return;
  hasAccessibilityAccess_ = isTrusted;
  showStudyOrGate();
  guardPresses(*studyOrGate_->currentWidget());
}

void AppFlowView::showStudyOrGate() {
  constexpr int studyIndex = 0;
  constexpr int gateIndex = 1;
  gate_->setOffersSaving(canSave());
  studyOrGate_->setCurrentIndex(isGateShown() ? gateIndex : studyIndex);
  if (isGateShown()) gate_->setFocus();
}

StudyTyping AppFlowView::typing() const {
  return {{{{engine1_.measurements().keystrokeCount, *typedText1_},
            {engine2_.measurements().keystrokeCount, *typedText2_}}}};
}

void AppFlowView::noteSaved() {
  savedTyping_ = typing();
  // Saved behind the gate, in the middle of a session, the study may still go on.
  if (step_ == AppStep::results) keeping_.forget();
}

bool AppFlowView::canSave() const {
  return offersSaving(step_, isGateShown(), typing() != StudyTyping{});
}

void AppFlowView::closeEvent(QCloseEvent* event) {
  const auto closing = closingOf({isUnsaved(typing(), savedTyping_), isEnding_});
  event->setAccepted(closing == Closing::atOnce);
  if (closing == Closing::afterQuestion) askBeforeClosing();
}

void AppFlowView::askBeforeClosing() {
  // Answered, it is deleted a little later.
  if (question_ != nullptr && question_->isVisible()) return;
  question_ = makeClosingQuestion();
  question_->open();
  guardPresses(*question_);
}

StudyDialog* AppFlowView::makeClosingQuestion() {
  using Role = StudyDialog::ChoiceRole;
  auto* const question = new StudyDialog(
      {QStringLiteral("exclamationmark.triangle.fill"), tr("Your typing has not been saved yet."),
       canSave() ? tr("You can save it now, or stay and save it later.")
                 : tr("Stay to go on with the study.")},
      this);
  question->setObjectName(QStringLiteral("closingQuestion"));
  question->addChoice(tr("Stay"), Role::safe);
  if (canSave()) question->addChoice(tr("Save Results…"), Role::other, [this] { save(); });
  question->addChoice(tr("Close Without Saving"), Role::other, [this] { closeWithoutSaving(); });
  return question;
}

void AppFlowView::closeWithoutSaving() {
  isEnding_ = true;
  close();
}

void AppFlowView::prepareForEnd() {
  isEnding_ = true;
}

void AppFlowView::save() {
  if (results_ != nullptr) {
    results_->save();
  } else {
    saver_.save(makeSnapshot(1), makeSnapshot(2), *this);
  }
}

}  // namespace mirvane
