#include "views/window_frame.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace mirvane {
namespace {

/// The title bar and the borders, where the window manager has not yet said how large they are.
constexpr QSize usualDecoration(16, 40);

QSize decorationOf(const QWidget& window) {
  const QSize known = window.frameGeometry().size() - window.size();
  return known.expandedTo(usualDecoration);
}

class KeptOnScreen : public QObject {
 public:
  KeptOnScreen(QWidget& window, QSize minimumSize)
      : QObject(&window), window_(window), minimumSize_(minimumSize) {
    window.installEventFilter(this);
    apply();
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Show) follow();
    return false;
  }

 private:
  void follow() {
    apply();
    connect(window_.windowHandle(), &QWindow::screenChanged, this, &KeptOnScreen::watchScreen,
            Qt::UniqueConnection);
    watchScreen(window_.screen());
  }

  void watchScreen(QScreen* screen) {
    disconnect(geometry_);
    if (screen == nullptr) return;
    geometry_ = connect(screen, &QScreen::availableGeometryChanged, this, [this] { apply(); });
    apply();
  }

  void apply() { window_.setMinimumSize(minimumSize_.boundedTo(roomOnScreen(window_))); }

  QWidget& window_;
  QSize minimumSize_;
  QMetaObject::Connection geometry_;
};

}  // namespace

QSize roomOnScreen(const QWidget& window) {
  return window.screen()->availableGeometry().size() - decorationOf(window);
}

void keepOnScreen(QWidget& window, QSize minimumSize) {
  new KeptOnScreen(window, minimumSize);
}

}  // namespace mirvane
