#pragma once

#include <QAbstractNativeEventFilter>
#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <QWindow>
#include <unordered_map>

namespace mirvane {

/// Tells the repeats of a held key from strokes, for everybody in this application: as a filter of
/// the application it makes sure that `QKeyEvent::isAutoRepeat()` is right, and that a hold has one
/// release, when the key is let go.
///
/// A stroke belongs to the window and the control that had the keys when it began. Once that
/// control is gone, or another window has the keys, what a held key repeats is meant for nobody and
/// is dropped: it does not type into the next screen. Releases always pass, for who measures holds.
///
/// Modifier keys do not repeat, and own keys (`SynthesizedKeyEvent`) have no scan code: both pass.
class QtKeyStrokes : public QObject, public QAbstractNativeEventFilter {
  Q_OBJECT

 public:
  QtKeyStrokes();

  /// Installs it before all filters that the application has by now.
  void install();

  bool eventFilter(QObject* receiver, QEvent* event) override;

  /// Drops what a key repeats in another window than it went down in, on X11. A window that closes
  /// takes keys with it that no widget ever sees, but their repeats go to the next one.
  bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

 private:
  /// Where a stroke began.
  struct Origin {
    QPointer<QObject> window;
    QPointer<QWidget> control;
    bool hadControl = false;
    bool isLeft = false;  ///< stays left, also if the control comes back

    [[nodiscard]] bool isStillThere(const QObject* receiver) const;
  };

  [[nodiscard]] bool handlePress(QObject& receiver, QKeyEvent& event);
  [[nodiscard]] bool handleRelease(QObject& receiver, QKeyEvent& event);
  [[nodiscard]] bool isGuessedRepeat(const QKeyEvent& event) const;
  [[nodiscard]] bool deliver(QObject& receiver, QKeyEvent& event, bool isRepeat);
  void forgetKeysLetGoElsewhere();

  bool serverTellsReleases_ = false;
  const QEvent* delivered_ = nullptr;                   ///< a corrected event on its way
  std::unordered_map<quint32, Origin> held_;            ///< by scan code
  std::unordered_map<quint32, quint32> nativeWindows_;  ///< where held keys went down, by scan code
};

}  // namespace mirvane
