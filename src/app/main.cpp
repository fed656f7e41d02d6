#include <QApplication>
#include <QFontDatabase>
#include <QIcon>
#include <QPainter>
#include <optional>

#include "app/app_flow_view.h"
#include "app/composition.h"
#include "app/study_configuration.h"
#include "views/mirvane_logo.h"
#include "views/theme.h"

namespace {

/// The toolkit would run GLib's default main context, which is the accessibility thread's. So would
/// a look borrowed from GTK. To be there while the application is constructed: programs that it
/// starts later find the environment as it was.
class KeptOffGlib {
 public:
  KeptOffGlib() {
    qputenv("QT_NO_GLIB", "1");
    const bool isKde = qgetenv("XDG_CURRENT_DESKTOP").contains("KDE");
    if (theme_.startsWith("gtk") || (theme_.isEmpty() && !isKde)) qputenv(themeVariable, "generic");
  }

  ~KeptOffGlib() {
    qunsetenv("QT_NO_GLIB");
    if (theme_.isNull()) {
      qunsetenv(themeVariable);
    } else {
      qputenv(themeVariable, theme_);
    }
  }

  KeptOffGlib(const KeptOffGlib&) = delete;
  KeptOffGlib& operator=(const KeptOffGlib&) = delete;

 private:
  static constexpr const char* themeVariable = "QT_QPA_PLATFORMTHEME";
  QByteArray theme_ = qgetenv(themeVariable);
};

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
  auto keptOffGlib = std::make_optional<KeptOffGlib>();
  QApplication application(argc, argv);
  keptOffGlib.reset();
  setIdentity();
  QApplication::setStyle(QStringLiteral("Fusion"));
  setFont();
  // A steady caret is easier to find, and an idle study sleeps.
  QApplication::setCursorFlashTime(0);
  QApplication::setWindowIcon(makeIcon());

  mirvane::Composition composition;
  mirvane::AppFlowView window(
      {composition.engineServices(), composition.accessibility(), composition.workspace(),
       composition.monitors(), composition.tasks(), composition.clock(), composition.savePanel(),
       mirvane::loadStudyConfiguration(composition.bundle()),
       composition.reachesOtherPrograms() ? mirvane::OtherPrograms::watched
                                          : mirvane::OtherPrograms::leftAlone});
  window.setWindowTitle(QStringLiteral("MirvaneTest"));
  window.resize(window.minimumSize());
  window.show();
  window.raise();
  window.activateWindow();
  return QApplication::exec();
}
