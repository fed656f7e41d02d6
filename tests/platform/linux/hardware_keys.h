#pragma once

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

namespace mirvane {

/// A key of the keyboard as the windowing system hands it to a window.
struct HardwareKey {
  int key;
  quint32 scanCode;
  QString text = {};
  Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

inline const HardwareKey keyA{Qt::Key_A, 38, QStringLiteral("a")};
inline const HardwareKey keySpace{Qt::Key_Space, 65, QStringLiteral(" ")};
inline const HardwareKey keyReturn{Qt::Key_Return, 36, QStringLiteral("\r")};
inline const HardwareKey keyTab{Qt::Key_Tab, 23, QStringLiteral("\t")};
inline const HardwareKey keyLeftAlt{Qt::Key_Alt, 64};
inline const HardwareKey keyRightAlt{Qt::Key_AltGr, 108};

inline void send(QWidget& window, QEvent::Type type, const HardwareKey& key,
                 bool isRepeat = false) {
  QKeyEvent event(type, key.key, key.modifiers, key.scanCode, 0, 0, key.text, isRepeat);
  event.setTimestamp(1500);
  QCoreApplication::sendEvent(window.windowHandle(), &event);
}

inline void press(QWidget& window, const HardwareKey& key) {
  send(window, QEvent::KeyPress, key);
}
inline void release(QWidget& window, const HardwareKey& key) {
  send(window, QEvent::KeyRelease, key);
}

}  // namespace mirvane
