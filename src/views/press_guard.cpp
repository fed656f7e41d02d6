#include "views/press_guard.h"

#include <QTimer>

#include "views/rounded_button.h"

namespace mirvane {
namespace {

/// Longer than the pause in the slow double click of a participant with a tremor.
constexpr int waitMilliseconds = 1000;

QList<RoundedButton*> buttonsOf(const QWidget& arrival) {
  return arrival.findChildren<RoundedButton*>();
}

void setAllReady(const QWidget& arrival) {
  for (auto* const button : buttonsOf(arrival)) button->setReady(true);
}

QTimer& timerOf(QWidget& arrival) {
  const auto name = QLatin1String(pressGuardTimer);
  if (auto* const timer = arrival.findChild<QTimer*>(name, Qt::FindDirectChildrenOnly)) {
    return *timer;
  }
  auto* const timer = new QTimer(&arrival);
  timer->setObjectName(name);
  timer->setSingleShot(true);
  QObject::connect(timer, &QTimer::timeout, &arrival, [&arrival] { setAllReady(arrival); });
  return *timer;
}

}  // namespace

void guardPresses(QWidget& arrival) {
  for (auto* const button : buttonsOf(arrival)) {
    button->setReady(!button->isVisibleTo(&arrival));
  }
  timerOf(arrival).start(waitMilliseconds);
}

}  // namespace mirvane
