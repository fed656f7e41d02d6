#include "platform/linux/qt_event_monitors.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <utility>

#include "platform/key_codes.h"
#include "platform/linux/key_identity.h"
#include "platform/linux/synthesized_key_event.h"
#include "platform/linux/x11/server_clock.h"

namespace mirvane {
namespace {

bool takesTabs(const QWidget& widget) {
  if (const auto* plain = qobject_cast<const QPlainTextEdit*>(&widget)) {
    return !plain->tabChangesFocus();
  }
  if (const auto* rich = qobject_cast<const QTextEdit*>(&widget)) return !rich->tabChangesFocus();
  return false;
}

/// Whether the key works a menu or the focused control, or moves the focus, instead of typing.
bool worksControl(const QKeyEvent& event) {
  if (QApplication::activePopupWidget() != nullptr) return true;
  const auto* const focus = QApplication::focusWidget();
  if (focus == nullptr) return false;
  const bool isButton = qobject_cast<const QAbstractButton*>(focus) != nullptr;
  switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return !takesTabs(*focus);
    case Qt::Key_Space:
      return isButton;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      // A field of one line takes no line breaks.
      return isButton || qobject_cast<const QLineEdit*>(focus) != nullptr;
    default:
      return false;
  }
}

std::optional<std::string> charactersOf(const QKeyEvent& event) {
  // The toolkit says U+0008; the key that deletes backwards types DELETE everywhere else.
  if (event.key() == Qt::Key_Backspace) return "\x7F";
  if (event.text().isEmpty()) return std::nullopt;
  return event.text().toStdString();
}

EventMask kindOf(const QKeyEvent& event) {
  return event.type() == QEvent::KeyPress ? EventMask::keyDown : EventMask::keyUp;
}

}  // namespace

QtEventMonitors::QtEventMonitors(QtTaskQueue& queue, const Clock& clock, OtherApplications* others)
    : queue_(queue), clock_(clock), others_(others) {
  qApp->installEventFilter(this);
  strokes_.install();
  connect(qApp, &QGuiApplication::applicationStateChanged, this,
          [this](Qt::ApplicationState state) {
            if (state != Qt::ApplicationActive) modifierKeys_.forget();
          });
}

std::optional<MonitorHandle> QtEventMonitors::addGlobalMonitor(EventMask kind, Handler handler) {
  if (others_ == nullptr) return std::nullopt;
  const MonitorHandle handle{++lastHandle_};
  globalMonitors_.push_back({handle, kind, std::move(handler)});
  others_->setInputHandler([this](const InputEvent& event) { report(event, globalMonitors_); });
  return handle;
}

std::optional<MonitorHandle> QtEventMonitors::addLocalMonitor(EventMask kind, Handler handler) {
  const MonitorHandle handle{++lastHandle_};
  localMonitors_.push_back({handle, kind, std::move(handler)});
  return handle;
}

void QtEventMonitors::removeMonitor(MonitorHandle handle) {
  const auto isMeant = [&](const Monitor& monitor) { return monitor.handle == handle; };
  std::erase_if(localMonitors_, isMeant);
  const bool wasGlobal = std::erase_if(globalMonitors_, isMeant) > 0;
  if (wasGlobal && globalMonitors_.empty()) others_->setInputHandler(nullptr);
}

bool QtEventMonitors::eventFilter(QObject* receiver, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      // The window is the first to get a key and gets it once; the widgets in it may pass it on.
      if (receiver->isWindowType()) handleKey(static_cast<const QKeyEvent&>(*event));
      break;
    case QEvent::InputMethod:
      if (receiver == QGuiApplication::focusObject()) {
        handleCommit(static_cast<const QInputMethodEvent&>(*event));
      }
      break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      if (receiver->isWindowType()) handlePointerDown(static_cast<const QPointerEvent&>(*event));
      break;
    default:
      break;
  }
  return false;
}

void QtEventMonitors::handleKey(const QKeyEvent& event) {
  if (const auto* own = dynamic_cast<const SynthesizedKeyEvent*>(&event)) {
    reportOwn({kindOf(event), own->virtualKey(), charactersOf(event), own->modifierFlags(),
               clock_.monotonicSeconds(), own->userData()});
    return;
  }
  queue_.runPending();
  if (worksControl(event)) return;
  const auto keyCode = virtualKeyCode(event.nativeScanCode());
  if (isModifierKeyCode(keyCode)) {
    handleModifierKey(event, keyCode);
    return;
  }
  reportOwn({kindOf(event), keyCode, charactersOf(event), modifierKeys_.flagsAfter(event, keyCode),
             secondsOf(event), 0});
}

double QtEventMonitors::secondsOf(const QInputEvent& event) const {
  // While assistive technology listens, the toolkit asks it about each key first and then sends a
  // copy of the event, without its time.
  if (event.timestamp() == 0) return clock_.monotonicSeconds();
  const double now = clock_.monotonicSeconds() * millisecondsPerSecond;
  return wholeServerTime(event.timestamp(), now) / millisecondsPerSecond;
}

void QtEventMonitors::handleModifierKey(const QKeyEvent& event, std::uint16_t keyCode) {
  if (event.isAutoRepeat()) return;
  modifierKeys_.note(keyCode, event.type() == QEvent::KeyPress);
  reportOwn({EventMask::flagsChanged, keyCode, std::nullopt,
             modifierKeys_.flagsAfter(event, keyCode), secondsOf(event), 0});
}

void QtEventMonitors::handleCommit(const QInputMethodEvent& event) {
  if (event.commitString().isEmpty()) return;
  queue_.runPending();
  reportOwn({EventMask::keyDown, keycode::text, event.commitString().toStdString(),
             modifierKeys_.heldFlags(), clock_.monotonicSeconds(), std::nullopt});
}

void QtEventMonitors::handlePointerDown(const QPointerEvent& event) {
  queue_.runPending();
  InputEvent pressed;
  pressed.kind = EventMask::pointerDown;
  pressed.timestamp = secondsOf(event);
  reportOwn(pressed);
}

void QtEventMonitors::report(const InputEvent& event, const std::vector<Monitor>& monitors) {
  for (const auto& monitor : monitors) {
    const auto wanted = static_cast<std::uint64_t>(monitor.kind);
    if ((wanted & static_cast<std::uint64_t>(event.kind)) != 0) monitor.handler(event);
  }
}

}  // namespace mirvane
