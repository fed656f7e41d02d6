#include "views/scroll_keys.h"

#include <QAbstractScrollArea>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>
#include <optional>

namespace mirvane {
namespace {

std::optional<QAbstractSlider::SliderAction> scrollActionOf(int key) {
  switch (key) {
    case Qt::Key_Up:
      return QAbstractSlider::SliderSingleStepSub;
    case Qt::Key_Down:
      return QAbstractSlider::SliderSingleStepAdd;
    case Qt::Key_PageUp:
      return QAbstractSlider::SliderPageStepSub;
    case Qt::Key_PageDown:
      return QAbstractSlider::SliderPageStepAdd;
    case Qt::Key_Home:
      return QAbstractSlider::SliderToMinimum;
    case Qt::Key_End:
      return QAbstractSlider::SliderToMaximum;
    default:
      return std::nullopt;
  }
}

class ScrollKeys : public QObject {
 public:
  ScrollKeys(QAbstractScrollArea& area, QWidget& focused) : QObject(&focused), area_(&area) {
    focused.installEventFilter(this);
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || area_.isNull()) return false;
    const auto action = scrollActionOf(static_cast<QKeyEvent*>(event)->key());
    if (action) area_->verticalScrollBar()->triggerAction(*action);
    return action.has_value();
  }

 private:
  QPointer<QAbstractScrollArea> area_;
};

}  // namespace

void scrollByKeys(QAbstractScrollArea& area, QWidget& focused) {
  new ScrollKeys(area, focused);
}

}  // namespace mirvane
