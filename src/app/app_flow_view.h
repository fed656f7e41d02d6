#pragma once

#include <QPointer>
#include <QStackedLayout>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <optional>

#include "app/study_configuration.h"
#include "observation/observable.h"
#include "platform/accessibility.h"
#include "platform/file_system.h"
#include "platform/save_panel.h"
#include "platform/workspace.h"
#include "session/correction_engine.h"
#include "session/session_snapshot.h"
#include "session/study_keeping.h"
#include "session/study_typing.h"
#include "views/app_step.h"
#include "views/other_programs_notice.h"
#include "views/report_saver.h"

namespace mirvane {

class AccessibilityRequiredGateView;
class MirvaneStepSidebar;
class ResultsView;
class StudyDialog;

/// The root view: leads through the steps of the study, or shows the gate while accessibility is
/// not allowed. Owns what outlives a single screen: the engines and texts of the two sessions and
/// the slot of the one cycle-key monitor.
class AppFlowView : public QWidget {
  Q_OBJECT

 public:
  struct Services {
    EngineServices engine;    ///< of the two sessions
    EngineServices practice;  ///< of the practice
    Accessibility& accessibility;
    Workspace& workspace;
    EventMonitors& monitors;
    TaskQueue& tasks;
    const Clock& clock;
    SavePanel& savePanel;
    FileSystem& files;
    StudyConfiguration study;
    OtherPrograms otherPrograms = OtherPrograms::leftAlone;
    QStringList warnings = {};  ///< for the study team, shown before a participant begins
    StudyHeader header = {};    ///< what a recording says of the study; its prompts are filled in
    std::shared_ptr<JournalFile> journal = {};  ///< null: an unsaved study is not kept
  };

  explicit AppFlowView(const Services& services, QWidget* parent = nullptr);
  ~AppFlowView() override;
  AppFlowView(const AppFlowView&) = delete;
  AppFlowView& operator=(const AppFlowView&) = delete;

  [[nodiscard]] AppStep step() const { return step_; }

  /// What keeps the study while it is not saved.
  [[nodiscard]] StudyKeeping& keeping() { return keeping_; }

  /// Goes to the next step; stays at the last. There is no way back.
  void advance();

  /// To be called when the system ends the program: the window closes without a question then, for
  /// nobody may be there to answer, or time be left.
  void prepareForEnd();

 protected:
  /// Asks first while something has been typed that is not saved.
  void closeEvent(QCloseEvent* event) override;

 private:
  void makeStudy();
  void showStep();
  [[nodiscard]] QWidget* makeScreen();
  [[nodiscard]] QWidget* makeSession(int number);
  [[nodiscard]] QWidget* makeResults();
  [[nodiscard]] SessionSnapshot makeSnapshot(int number) const;
  /// `number` is 1 or 2.
  [[nodiscard]] const std::string& promptOf(int number) const {
    return services_.study.prompts.at(static_cast<std::size_t>(number - 1));
  }

  void offerToTakeUp();
  void takeUp();
  void resumeTyping();

  void pollPermission();
  void showStudyOrGate();

  [[nodiscard]] StudyTyping typing() const;
  [[nodiscard]] bool isGateShown() const { return !hasAccessibilityAccess_; }
  [[nodiscard]] bool canSave() const;
  void noteSaved();
  void askBeforeClosing();
  [[nodiscard]] StudyDialog* makeClosingQuestion();
  void closeWithoutSaving();
  void save();

  Services services_;
  ReportSaver saver_;
  AppStep step_ = AppStep::intro;
  CorrectionEngine engine1_;
  CorrectionEngine engine2_;
  Observable<std::string> typedText1_;
  Observable<std::string> typedText2_;
  StudyKeeping keeping_;
  QTimer keepTimer_;
  std::optional<MonitorHandle> cycleKeyMonitor_;
  bool hasAccessibilityAccess_;
  StudyTyping savedTyping_;  ///< what the last report holds
  bool isEnding_ = false;
  QPointer<StudyDialog> question_;  ///< whether to close
  QTimer refreshTimer_;
  QStackedLayout* studyOrGate_;
  MirvaneStepSidebar* sidebar_ = nullptr;
  QBoxLayout* study_ = nullptr;
  QWidget* screen_ = nullptr;
  ResultsView* results_ = nullptr;  ///< the screen once it is that of the results
  AccessibilityRequiredGateView* gate_ = nullptr;
};

}  // namespace mirvane
