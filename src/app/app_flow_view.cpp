#include "app/app_flow_view.h"

#include "capture/cycle_key_monitor.h"
#include "views/accessibility_required_gate_view.h"
#include "views/divider.h"
#include "views/intro_view.h"
#include "views/layouts.h"
#include "views/mirvane_step_sidebar.h"
#include "views/practice_view.h"
#include "views/press_guard.h"
#include "views/results_view.h"
#include "views/session_typing_view.h"
#include "views/theme.h"

namespace mirvane {
namespace {

constexpr int refreshMilliseconds = 1000;
constexpr const char* practicePrompt = "helo";

}  // namespace

AppFlowView::AppFlowView(const Services& services, QWidget* parent)
    : QWidget(parent),
      services_(services),
      engine1_(services.engine),
      engine2_(services.engine),
      hasAccessibilityAccess_(services.accessibility.isProcessTrusted()),
      studyOrGate_(new QStackedLayout(this)) {
  constexpr QSize minimumFrame(760, 600);
  setMinimumSize(minimumFrame);
  makeStudy();
  studyOrGate_->addWidget(new AccessibilityRequiredGateView(
      services_.accessibility, services_.workspace, theme::deep(), this));
  showStudyOrGate();
  refreshTimer_.setTimerType(Qt::CoarseTimer);
  connect(&refreshTimer_, &QTimer::timeout, this, &AppFlowView::pollPermission);
  refreshTimer_.start(refreshMilliseconds);
}

AppFlowView::~AppFlowView() {
  // The screens use the engines, which are members: they go first.
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
  return new ResultsView({makeSnapshot(1), makeSnapshot(2), services_.study.contactAddress,
                          services_.savePanel, services_.files, services_.clock});
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
  studyOrGate_->setCurrentIndex(hasAccessibilityAccess_ ? studyIndex : gateIndex);
}

}  // namespace mirvane
