#include <QApplication>
#include <QFontDatabase>
#include <QIcon>
#include <QPainter>

#include "app/app_flow_view.h"
#include "app/composition.h"
#include "app/study_configuration.h"
#include "views/mirvane_logo.h"
#include "views/theme.h"

namespace {

/// The toolkit would run GLib's default main context, which is the accessibility thread's. So would
/// a look borrowed from GTK.
void keepOffGlib() {
  qputenv("QT_NO_GLIB", "1");
  const auto theme = qgetenv("QT_QPA_PLATFORMTHEME");
  const bool isKde = qgetenv("XDG_CURRENT_DESKTOP").contains("KDE");
  if (theme.startsWith("gtk") || (theme.isEmpty() && !isKde)) {
    qputenv("QT_QPA_PLATFORMTHEME", "generic");
  }
}

void setIdentity() {
  QApplication::setApplicationName(QStringLiteral("mirvanetest"));
  QApplication::setApplicationDisplayName(QStringLiteral("MirvaneTest"));
  QGuiApplication::setDesktopFileName(QStringLiteral("org.mirvane.MirvaneTest"));
}

/// Inter where it is installed, else the desktop's own font.
void setFont() {
  const auto inter = QStringLiteral("Inter");
  if (!QFontDatabase::families().contains(inter)) return;
  QFont font = QApplication::font();
  font.setFamily(inter);
  QApplication::setFont(font);
}

QIcon makeIcon() {
  constexpr int side = 128;
  QPixmap pixmap(side, side);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  mirvane::drawLogo(painter, pixmap.rect(), side / 4.0, mirvane::theme::deep(),
                    mirvane::theme::sky());
  return pixmap;
}

}  // namespace

int main(int argc, char** argv) {
  keepOffGlib();
  QApplication application(argc, argv);
  // Programs that this one starts have their own main thread.
  qunsetenv("QT_NO_GLIB");
  setIdentity();
  QApplication::setStyle(QStringLiteral("Fusion"));
  setFont();
  // A steady caret is easier to find, and an idle study sleeps.
  QApplication::setCursorFlashTime(0);
  QApplication::setWindowIcon(makeIcon());

  mirvane::Composition composition;
  mirvane::AppFlowView window({composition.engineServices(), composition.accessibility(),
                               composition.workspace(), composition.monitors(), composition.tasks(),
                               composition.clock(), composition.savePanel(),
                               mirvane::loadStudyConfiguration(composition.bundle())});
  window.setWindowTitle(QStringLiteral("MirvaneTest"));
  window.resize(window.minimumSize());
  window.show();
  window.raise();
  window.activateWindow();
  return QApplication::exec();
}
