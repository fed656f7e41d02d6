#pragma once

#include <QObject>
#include <vector>

#include "platform/clock.h"
#include "platform/event_monitors.h"
#include "platform/linux/modifier_keys.h"
#include "platform/linux/other_applications.h"
#include "platform/linux/qt_key_strokes.h"
#include "platform/linux/qt_task_queue.h"

class QInputEvent;
class QInputMethodEvent;
class QKeyEvent;
class QPointerEvent;

namespace mirvane {

/// Watches the keys and pointer presses of this application's own windows through an event filter
/// of the application. Each press is reported once. A held key comes as repeated presses and one
/// release (`QtKeyStrokes`); a letter composed from several keys comes as one press that carries
/// it.
///
/// Keys that work a control are not typing and are not reported: Tab where it moves the focus,
/// Space and Return on a button.
class QtEventMonitors : public QObject, public EventMonitors {
  Q_OBJECT

 public:
  /// What `queue` holds is run before each new key is delivered. `others` is null where other
  /// applications cannot be watched.
  QtEventMonitors(QtTaskQueue& queue, const Clock& clock, OtherApplications* others = nullptr);

  /// Refused where other applications cannot be watched. Changes of modifier keys are not reported
  /// from there.
  [[nodiscard]] std::optional<MonitorHandle> addGlobalMonitor(EventMask kind,
                                                              Handler handler) override;
  [[nodiscard]] std::optional<MonitorHandle> addLocalMonitor(EventMask kind,
                                                             Handler handler) override;
  void removeMonitor(MonitorHandle handle) override;

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  struct Monitor {
    MonitorHandle handle;
    EventMask kind;
    Handler handler;
  };

  void handleKey(const QKeyEvent& event);
  void handleModifierKey(const QKeyEvent& event, std::uint16_t keyCode);
  void handleCommit(const QInputMethodEvent& event);
  void handlePointerDown(const QPointerEvent& event);
  /// When it happened, on the clock that goes on counting where the display server's begins anew.
  [[nodiscard]] double secondsOf(const QInputEvent& event) const;
  static void report(const InputEvent& event, const std::vector<Monitor>& monitors);
  void reportOwn(const InputEvent& event) const { report(event, localMonitors_); }

  QtTaskQueue& queue_;
  const Clock& clock_;
  OtherApplications* others_;
  QtKeyStrokes strokes_;
  ModifierKeys modifierKeys_;
  std::vector<Monitor> localMonitors_;
  std::vector<Monitor> globalMonitors_;
  std::uint64_t lastHandle_ = 0;
};

}  // namespace mirvane
