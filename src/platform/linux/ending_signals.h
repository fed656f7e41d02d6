#pragma once

#include <QObject>

class QSocketNotifier;

namespace mirvane {

/// Tells on the main thread that the program is asked to end: by SIGTERM (the system, `kill`),
/// SIGINT (Ctrl+C) or SIGHUP (its terminal has gone). What was ignored when the program started
/// stays so, as under `nohup`.
///
/// It is told once. After the first SIGTERM or SIGINT either of them ends the program at once,
/// whatever it is doing. SIGHUP never does: it comes twice where a terminal closes, and right
/// behind SIGTERM where a log-in session is ended. One object at most at a time.
class EndingSignals : public QObject {
  Q_OBJECT

 public:
  /// Takes the signals from now on.
  EndingSignals();
  /// Gives them their usual effect again.
  ~EndingSignals() override;
  EndingSignals(const EndingSignals&) = delete;
  EndingSignals& operator=(const EndingSignals&) = delete;

  /// The exit code of a program that such a signal has ended, as shells tell it.
  [[nodiscard]] static constexpr int exitCodeOf(int signalNumber) { return 128 + signalNumber; }

 Q_SIGNALS:
  void arrived(int signalNumber);

 private:
  void tell();

  QSocketNotifier* notifier_;
};

}  // namespace mirvane
