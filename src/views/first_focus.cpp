#include "views/first_focus.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>

namespace mirvane {
namespace {

class FirstFocus : public QObject {
 public:
  FirstFocus(QWidget& screen, QWidget& part) : QObject(&screen), part_(&part) {
    screen.installEventFilter(this);
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::FocusIn && !part_.isNull()) part_->setFocus();
    return false;
  }

 private:
  QPointer<QWidget> part_;
};

}  // namespace

void giveFirstFocus(QWidget& screen, QWidget& part) {
  new FirstFocus(screen, part);
}

}  // namespace mirvane
