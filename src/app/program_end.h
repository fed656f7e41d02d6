#pragma once

#include <QObject>
#include <functional>

#include "platform/linux/ending_signals.h"

namespace mirvane {

/// Ends the program properly when the system asks for it: the work is kept, the window closes
/// without a question, and what the program holds of the desktop is let go.
///
/// The exit code is 0 at the end of the log-in session, and 128 and the number of the signal after
/// a signal, as a shell would tell it. The log-out is never held up: at its first notice, after
/// which it may still be called off, the work is only kept.
class ProgramEnd : public QObject {
  Q_OBJECT

 public:
  struct Callbacks {
    /// Puts what is not saved yet where it outlives the program; empty where nothing is kept.
    std::function<void()> keep = {};
    /// From now on nobody is asked anything.
    std::function<void()> prepareForEnd;
  };

  /// Needs the toolkit's application object.
  explicit ProgramEnd(Callbacks callbacks);

  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  void keep() const;
  void prepare() const;

  Callbacks callbacks_;
  EndingSignals signals_;
};

}  // namespace mirvane
