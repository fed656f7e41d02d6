#pragma once

#include <QString>
#include <QStringList>
#include <functional>

#include "observation/observable.h"
#include "session/correction_engine.h"

namespace mirvane {

/// Waits for things to settle: calls `onElapsed` once, some time after the last `restart`.
class SettleTimer {
 public:
  SettleTimer() = default;
  SettleTimer(const SettleTimer&) = delete;
  SettleTimer& operator=(const SettleTimer&) = delete;
  virtual ~SettleTimer() = default;

  std::function<void()> onElapsed;

  virtual void restart() = 0;
};

/// What a screen says to screen readers beside what has the focus. What happens at the same moment
/// is said together: a screen reader breaks off one announcement for the next.
class Announcements {
 public:
  using Speak = std::function<void(const QString&)>;

  /// The timer must outlive this.
  Announcements(SettleTimer& moment, Speak speak);

  void say(const QString& text);

 private:
  void speakAll();

  SettleTimer& moment_;
  Speak speak_;
  QStringList waiting_;
};

/// Says what an engine does: each correction and each cycle step, and the suggestions once the keys
/// have paused.
class EngineAnnouncements {
 public:
  /// All three must outlive this.
  EngineAnnouncements(const CorrectionEngine& engine, Announcements& announcements,
                      SettleTimer& pause);

 private:
  void follow();
  void saySuggestions();

  const CorrectionEngine& engine_;
  Announcements& announcements_;
  SettleTimer& pause_;
  std::size_t saidEvents_;
  std::vector<std::string> saidSuggestions_;
  Subscription subscription_;
};

}  // namespace mirvane
