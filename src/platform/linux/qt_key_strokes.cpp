#include "platform/linux/qt_key_strokes.h"

#include <xcb/xproto.h>

#include <QApplication>

#include "platform/linux/key_identity.h"
#include "platform/linux/x11/keyboard_state.h"

namespace mirvane {
namespace {

/// The toolkit's connection to the X server; null on other platforms.
_XDisplay* xDisplay() {
  const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 != nullptr ? x11->display() : nullptr;
}

}  // namespace

QtKeyStrokes::QtKeyStrokes() {
  if (auto* const display = xDisplay()) {
    serverTellsReleases_ = askForReleasesOfStrokesOnly(display);
  }
  connect(qApp, &QGuiApplication::applicationStateChanged, this,
          [this](Qt::ApplicationState state) {
            if (state == Qt::ApplicationActive) forgetKeysLetGoElsewhere();
          });
}

void QtKeyStrokes::install() {
  qApp->installEventFilter(this);
  qApp->installNativeEventFilter(this);
}

bool QtKeyStrokes::nativeEventFilter(const QByteArray& eventType, void* message,
                                     qintptr* /*result*/) {
  if (eventType != "xcb_generic_event_t") return false;
  constexpr unsigned kindBits = 0x7F;
  const auto& event = *static_cast<const xcb_key_press_event_t*>(message);
  const unsigned kind = event.response_type & kindBits;
  if (kind == XCB_KEY_RELEASE) nativeWindows_.erase(event.detail);
  if (kind != XCB_KEY_PRESS) return false;
  const auto [pressed, isStroke] = nativeWindows_.try_emplace(event.detail, event.event);
  if (!isStroke && pressed->second != event.event) pressed->second = XCB_NONE;
  return pressed->second == XCB_NONE;
}

bool QtKeyStrokes::eventFilter(QObject* receiver, QEvent* event) {
  if (!receiver->isWindowType() || event == delivered_) return false;
  switch (event->type()) {
    case QEvent::KeyPress:
      return handlePress(*receiver, static_cast<QKeyEvent&>(*event));
    case QEvent::KeyRelease:
      return handleRelease(*receiver, static_cast<QKeyEvent&>(*event));
    default:
      return false;
  }
}

bool QtKeyStrokes::isGuessedRepeat(const QKeyEvent& event) const {
  // On X11 the toolkit takes a key struck again within a millisecond for a repeat.
  return event.isAutoRepeat() && !serverTellsReleases_;
}

bool QtKeyStrokes::handlePress(QObject& receiver, QKeyEvent& event) {
  const auto scanCode = event.nativeScanCode();
  if (scanCode == 0 || isModifierKeyCode(virtualKeyCode(scanCode))) return false;
  const auto held = held_.find(scanCode);
  if (held == held_.end()) {
    if (isGuessedRepeat(event)) return false;
    auto* const control = QApplication::focusWidget();
    held_[scanCode] = {&receiver, control, control != nullptr};
    return deliver(receiver, event, false);
  }
  Origin& origin = held->second;
  origin.isLeft = origin.isLeft || !origin.isStillThere(&receiver);
  return origin.isLeft || deliver(receiver, event, true);
}

bool QtKeyStrokes::handleRelease(QObject& receiver, QKeyEvent& event) {
  if (isGuessedRepeat(event)) return true;
  held_.erase(event.nativeScanCode());
  return deliver(receiver, event, false);
}

/// Whether it has delivered the event itself, because nobody can correct the mark of the event.
bool QtKeyStrokes::deliver(QObject& receiver, QKeyEvent& event, bool isRepeat) {
  if (event.isAutoRepeat() == isRepeat) return false;
  QKeyEvent corrected(event.type(), event.key(), event.modifiers(), event.nativeScanCode(),
                      event.nativeVirtualKey(), event.nativeModifiers(), event.text(), isRepeat,
                      static_cast<quint16>(event.count()), event.device());
  corrected.setTimestamp(event.timestamp());
  delivered_ = &corrected;
  QCoreApplication::sendEvent(&receiver, &corrected);
  delivered_ = nullptr;
  event.setAccepted(corrected.isAccepted());
  return true;
}

bool QtKeyStrokes::Origin::isStillThere(const QObject* receiver) const {
  return window == receiver && (!hadControl || (control != nullptr && control->isVisible()));
}

void QtKeyStrokes::forgetKeysLetGoElsewhere() {
  auto* const display = xDisplay();
  const KeysDown down = display != nullptr ? keysDown(display) : KeysDown();
  std::erase_if(held_,
                [&](const auto& key) { return key.first >= down.size() || !down[key.first]; });
}

}  // namespace mirvane
