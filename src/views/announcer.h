#pragma once

#include <QTimer>
#include <QWidget>
#include <chrono>

#include "views/announcements.h"

namespace mirvane {

/// The toolkit's timer as a settle timer.
class QtSettleTimer : public SettleTimer {
 public:
  explicit QtSettleTimer(std::chrono::milliseconds pause);

  void restart() override { timer_.start(); }

 private:
  QTimer timer_;
};

/// Speaks a screen's announcements: to assistive technology each is a notification that appears,
/// which screen readers say without moving the focus. Nothing is seen of it.
class Announcer : public QWidget {
  Q_OBJECT

 public:
  /// How long what is said waits for more of the same moment. A screen that speaks when it comes up
  /// waits longer: first the screen reader names the window and what has the focus.
  static constexpr std::chrono::milliseconds together{150};
  static constexpr std::chrono::milliseconds afterTheFocus{1500};

  explicit Announcer(QWidget* screen, std::chrono::milliseconds moment = together);

  [[nodiscard]] Announcements& announcements() { return announcements_; }
  /// Elapses when no key has come for a second.
  [[nodiscard]] SettleTimer& pauseOfKeys() { return pauseOfKeys_; }

 private:
  void speak(const QString& text);

  QtSettleTimer moment_;
  QtSettleTimer pauseOfKeys_;
  Announcements announcements_;
};

}  // namespace mirvane
