#include "views/announcer.h"

#include "views/accessible_parts.h"

namespace mirvane {

QtSettleTimer::QtSettleTimer(std::chrono::milliseconds pause) {
  timer_.setSingleShot(true);
  timer_.setInterval(pause);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
    if (onElapsed) onElapsed();
  });
}

Announcer::Announcer(QWidget* screen, std::chrono::milliseconds moment)
    : QWidget(screen),
      moment_(moment),
      pauseOfKeys_(std::chrono::seconds(1)),
      announcements_(moment_, [this](const QString& text) { speak(text); }) {
  setObjectName(QStringLiteral("announcer"));
  setAccessibleRole(*this, QAccessible::Notification);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFixedSize(1, 1);
  hide();
}

void Announcer::speak(const QString& text) {
  // Screen readers say a notification when it begins to be shown.
  hide();
  setAccessibleName(text);
  show();
}

}  // namespace mirvane
