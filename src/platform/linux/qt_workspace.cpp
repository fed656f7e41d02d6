#include "platform/linux/qt_workspace.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>
#include <array>

#include "platform/linux/active_application.h"

namespace mirvane {
namespace {

struct SettingsProgram {
  const char* program;
  const char* page;
};

/// Where the desktops keep their accessibility settings.
constexpr std::array<SettingsProgram, 6> accessibilityPages{{
    {"gnome-control-center", "universal-access"},
    {"systemsettings", "kcm_access"},
    {"systemsettings5", "kcm_access"},
    {"cinnamon-settings", "universal-access"},
    {"xfce4-accessibility-settings", nullptr},
    {"mate-at-properties", nullptr},
}};

bool openAccessibilitySettings() {
  return std::any_of(
      accessibilityPages.begin(), accessibilityPages.end(), [](const SettingsProgram& settings) {
        const auto path = QStandardPaths::findExecutable(QLatin1String(settings.program));
        if (path.isEmpty()) return false;
        QStringList arguments;
        if (settings.page != nullptr) arguments << QLatin1String(settings.page);
        return QProcess::startDetached(path, arguments);
      });
}

}  // namespace

QtWorkspace::QtWorkspace(OtherApplications* others) : others_(others) {
  if (others_ != nullptr) others_->setActivationHandler([this] { announceActivation(); });
  connect(qApp, &QGuiApplication::applicationStateChanged, this,
          [this](Qt::ApplicationState state) {
            if (state == Qt::ApplicationActive) announceActivation();
          });
}

std::optional<RunningApplication> QtWorkspace::frontmostApplication() const {
  if (isOtherActive(others_)) {
    const auto& window = others_->frontmostWindow();
    if (!window) return std::nullopt;
    return RunningApplication{window->identifier};
  }
  if (QGuiApplication::applicationState() != Qt::ApplicationActive) return std::nullopt;
  return RunningApplication{QGuiApplication::desktopFileName().toStdString()};
}

std::optional<MonitorHandle> QtWorkspace::addActivationObserver(std::function<void()> onActivated) {
  const MonitorHandle handle{++lastHandle_};
  observers_.emplace_back(handle, std::move(onActivated));
  return handle;
}

void QtWorkspace::removeActivationObserver(MonitorHandle handle) {
  std::erase_if(observers_, [&](const auto& observer) { return observer.first == handle; });
}

bool QtWorkspace::openUrl(const std::string& url) {
  if (url == accessibilitySettingsUrl) return openAccessibilitySettings();
  return QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
}

void QtWorkspace::announceActivation() const {
  for (const auto& observer : observers_) observer.second();
}

}  // namespace mirvane
