#pragma once

#include <QLineEdit>
#include <QWidget>
#include <functional>
#include <optional>

#include "platform/event_monitors.h"
#include "platform/task_queue.h"
#include "session/correction_engine.h"

#include "views/announcements.h"

namespace mirvane {

class Announcer;

class ChecklistRow;
class MirvanePrimaryButton;

/// Lets the participant try the controls on one word before the sessions. The practice has an
/// engine of its own, so nothing typed here counts.
class PracticeView : public QWidget {
  Q_OBJECT

 public:
  struct Inputs {
    const EngineServices& services;  ///< of the practice engine
    std::optional<MonitorHandle>& cycleKeyMonitor;
    EventMonitors& monitors;
    TaskQueue& tasks;
    QString practicePrompt;
    std::function<void()> onNext;
    QColor deep;
    QColor sky;
  };

  explicit PracticeView(const Inputs& inputs, QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  [[nodiscard]] QWidget* makeField();
  [[nodiscard]] QWidget* makeChecklist();
  [[nodiscard]] QWidget* makeStartBar();

  void appear();
  void disappear();
  void installSpaceMonitor();
  void cycle();
  void apply(const QString& suggestion);
  void updateChecklist();

  Inputs inputs_;
  CorrectionEngine practiceEngine_;
  Announcer* announcer_;
  EngineAnnouncements engineAnnouncements_;
  std::optional<MonitorHandle> keyMonitor_;
  QLineEdit* field_;
  ChecklistRow* typeWord_ = nullptr;
  ChecklistRow* pressSpace_ = nullptr;
  ChecklistRow* cycleSuggestion_ = nullptr;
  MirvanePrimaryButton* start_ = nullptr;
  Lifetime lifetime_;
};

}  // namespace mirvane
