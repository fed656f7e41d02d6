#include <QApplication>
#include <QFontDatabase>
#include <QIcon>
#include <QPainter>
#include <chrono>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "app/app_flow_view.h"
#include "app/command_line.h"
#include "app/composition.h"
#include "app/program_end.h"
#include "app/study_configuration.h"
#include "platform/linux/appearance_portal.h"
#include "platform/linux/resource_bundle.h"
#include "views/accessible_parts.h"
#include "views/mirvane_logo.h"
#include "views/palette_choice.h"
#include "views/study_problem_view.h"
#include "views/theme.h"

namespace {

/// Exit code where the study file is damaged.
constexpr int studyFileFailure = 2;

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

void follow(const mirvane::Appearance& wanted) {
  // The desktop's own palette comes to light when none is set over it.
  QApplication::setPalette(QPalette());
  if (const auto palette = mirvane::chosenPalette(QApplication::palette(), wanted)) {
    QApplication::setPalette(*palette);
  }
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

/// The answer to --help, --version or a wrong call.
int say(const mirvane::CommandLineAnswer& answer) {
  std::cout << answer.output << std::flush;
  std::cerr << answer.error;
  return answer.exitCode;
}

/// The toolkit takes its options out of such a list, which it keeps.
std::vector<char*> pointersTo(std::vector<std::string>& arguments) {
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (auto& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  return pointers;
}

int show(QWidget& window) {
  window.setWindowTitle(QStringLiteral("MirvaneTest"));
  window.show();
  window.raise();
  window.activateWindow();
  return QApplication::exec();
}

int runStudy(const mirvane::LoadedStudy& study, const mirvane::Bundle& bundle) {
  mirvane::Composition composition(study.configuration, bundle);
  mirvane::AppFlowView window(
      {composition.sessionServices(), composition.practiceServices(), composition.accessibility(),
       composition.workspace(), composition.monitors(), composition.tasks(), composition.clock(),
       composition.savePanel(), composition.files(), study.configuration,
       composition.reachesOtherPrograms() ? mirvane::OtherPrograms::watched
                                          : mirvane::OtherPrograms::leftAlone,
       study.warnings, composition.studyHeader(), composition.journal(study.configuration)});
  window.resize(window.minimumSize());
  const mirvane::ProgramEnd end(
      {[&window] { static_cast<void>(window.keeping().flush(std::chrono::seconds(1))); },
       [&window] { window.prepareForEnd(); }});
  return show(window);
}

int showProblems(const QStringList& problems) {
  mirvane::StudyProblemView window(problems, [] { QApplication::exit(studyFileFailure); });
  window.setFocus();
  show(window);
  return studyFileFailure;
}

}  // namespace

int main(int argc, char** argv) {
  auto [call, answer] = mirvane::parseCommandLine({argv, argv + argc});
  if (answer) return say(*answer);
  auto pointers = pointersTo(call->toolkitArguments);
  auto count = static_cast<int>(call->toolkitArguments.size());
  auto keptOffGlib = std::make_optional<KeptOffGlib>();
  QApplication application(count, pointers.data());
  keptOffGlib.reset();
  setIdentity();
  mirvane::installAccessibleParts();
  QApplication::setStyle(QStringLiteral("Fusion"));
  setFont();
  // A steady caret is easier to find, and an idle study sleeps.
  QApplication::setCursorFlashTime(0);
  QApplication::setWindowIcon(makeIcon());

  const mirvane::AppearancePortal appearance(follow);

  const mirvane::ResourceBundle resources(mirvane::standardResourceFolder());
  const auto study = mirvane::loadStudy(resources, call->studyFile, call->participant);
  return study.problems.isEmpty() ? runStudy(study, resources) : showProblems(study.problems);
}
