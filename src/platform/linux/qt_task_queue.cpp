#include "platform/linux/qt_task_queue.h"

#include <QCoreApplication>
#include <QEvent>
#include <utility>

namespace mirvane {

void QtTaskQueue::post(std::function<void()> task) {
  QMetaObject::invokeMethod(this, std::move(task), Qt::QueuedConnection);
}

void QtTaskQueue::runPending() {
  QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

}  // namespace mirvane
