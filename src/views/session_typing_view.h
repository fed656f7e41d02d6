#pragma once

#include <QPlainTextEdit>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "observation/observable.h"
#include "platform/event_monitors.h"
#include "platform/task_queue.h"
#include "session/correction_engine.h"
#include "views/announcements.h"
#include "views/other_programs_notice.h"
#include "views/study_dialog.h"

namespace mirvane {

class Announcer;

/// One timed typing session. Text, engine and the slot of the cycle-key monitor belong to the
/// flow, so they survive this screen; tracking runs while it is shown.
class SessionTypingView : public QWidget {
  Q_OBJECT

 public:
  struct Inputs {
    int sessionNumber;  ///< 1 or 2
    QString prompt;
    CorrectionEngine& engine;
    Observable<std::string>& typedText;
    /// Null in a session without the cycle key.
    std::optional<MonitorHandle>* cycleKeyMonitor;
    EventMonitors& monitors;
    TaskQueue& tasks;
    std::function<void()> onDone;
    OtherPrograms otherPrograms;
    QColor deep;
    QColor sky;
  };

  explicit SessionTypingView(Inputs inputs, QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  [[nodiscard]] bool hasCycleKey() const { return inputs_.cycleKeyMonitor != nullptr; }
  [[nodiscard]] QWidget* makeHeader();
  [[nodiscard]] QWidget* makeNotice();
  [[nodiscard]] QWidget* makePromptCard();
  [[nodiscard]] QWidget* makeField();
  [[nodiscard]] QWidget* makeDoneBar();

  void appear();
  void disappear();
  void cycle();
  void apply(const QString& suggestion);
  void reset();
  /// Hands over to the flow, but asks first when nothing has been typed.
  void finish();
  void askAboutEmptyField();
  void showTypedText();

  Inputs inputs_;
  QColor accent_;
  Announcer* announcer_;
  EngineAnnouncements engineAnnouncements_;
  QPlainTextEdit* field_ = nullptr;
  QPointer<StudyDialog> emptyFieldQuestion_;
  Subscription typedTextSubscription_;
  Lifetime lifetime_;
};

}  // namespace mirvane
