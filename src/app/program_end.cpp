#include "app/program_end.h"

#include <QApplication>
#include <QEvent>
#include <utility>

namespace mirvane {

ProgramEnd::ProgramEnd(Callbacks callbacks) : callbacks_(std::move(callbacks)) {
  connect(&signals_, &EndingSignals::arrived, this, [this](int number) {
    prepare();
    QApplication::exit(EndingSignals::exitCodeOf(number));
  });
  // At once: the session manager goes on when this is answered.
  const auto keepNow = [this] { keep(); };
  connect(qApp, &QGuiApplication::commitDataRequest, this, keepNow, Qt::DirectConnection);
  connect(qApp, &QGuiApplication::saveStateRequest, this, keepNow, Qt::DirectConnection);
  qApp->installEventFilter(this);
}

bool ProgramEnd::eventFilter(QObject* receiver, QEvent* event) {
  // The toolkit closes all windows then, and goes on only if all of them let it.
  if (event->type() == QEvent::Quit && receiver == qApp) prepare();
  return false;
}

void ProgramEnd::keep() const {
  if (callbacks_.keep) callbacks_.keep();
}

void ProgramEnd::prepare() const {
  keep();
  callbacks_.prepareForEnd();
}

}  // namespace mirvane
