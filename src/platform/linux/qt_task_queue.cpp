#include "platform/linux/qt_task_queue.h"

#include <QCoreApplication>
#include <QEvent>
#include <utility>

namespace mirvane {
namespace {

constexpr QEvent::Type taskType = QEvent::User;

class TaskEvent : public QEvent {
 public:
  explicit TaskEvent(std::function<void()> task) : QEvent(taskType), task_(std::move(task)) {}

  void run() const { task_(); }

 private:
  std::function<void()> task_;
};

}  // namespace

void QtTaskQueue::post(std::function<void()> task) {
  QCoreApplication::postEvent(this, new TaskEvent(std::move(task)));
}

void QtTaskQueue::runPending() {
  QCoreApplication::sendPostedEvents(this, taskType);
}

void QtTaskQueue::drop() {
  QCoreApplication::removePostedEvents(this, taskType);
}

bool QtTaskQueue::event(QEvent* event) {
  if (event->type() != taskType) return QObject::event(event);
  static_cast<const TaskEvent*>(event)->run();
  return true;
}

}  // namespace mirvane
