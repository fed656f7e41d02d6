#pragma once

#include <QCoreApplication>
#include <QWidget>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "app/app_flow_view.h"
#include "model/typing_config.h"
#include "model/user_settings.h"
#include "platform/linux/posix_file_system.h"
#include "platform/simulated/desktop.h"
#include "platform/simulated/in_memory_user_defaults.h"
#include "platform/simulated/scripted_save_panel.h"
#include "session/correction_engine.h"
#include "suggest/suggestion_engine.h"
#include "support/scripted_english.h"
#include "views/theme.h"

namespace mirvane {

/// Everything a screen needs, simulated. What is typed goes to `element`, which stands for the
/// screen's own text field.
struct StudyWorld {
  simulated::Desktop desktop;
  simulated::TextElement& element =
      desktop.openElement(simulated::ElementKind::multiLine, {}, {"org.mirvane.MirvaneTest", true});
  simulated::InMemoryUserDefaults defaults;
  UserSettings settings{defaults, desktop.workspace()};
  simulated::InMemoryUserDefaults practiceDefaults;
  UserSettings practiceSettings{practiceDefaults, desktop.workspace()};
  StudyConfiguration study{QStringLiteral("team@study.example")};
  TypingConfig config;
  ScriptedEnglish english{
      {.words = {{"hello", "help", "helm"}, {{"helo", {"hello", "help", "helm"}}}, {}}}};
  SuggestionEngine suggestionEngine{config, settings, english.services()};
  simulated::ScriptedSavePanel savePanel;
  PosixFileSystem files;
  std::optional<MonitorHandle> cycleKeyMonitor;

  [[nodiscard]] EngineServices services() { return services(settings); }
  [[nodiscard]] EngineServices services(const UserSettings& chosen) {
    return {{desktop.monitors(), desktop.workspace(), desktop.tasks()},
            {config, chosen, suggestionEngine, desktop.accessibility(), desktop.poster(),
             desktop.clock()}};
  }

  /// The whole study, shown from its first step on.
  [[nodiscard]] std::unique_ptr<AppFlowView> openFlow(std::shared_ptr<JournalFile> journal = {});

  /// The right Alt key, down and up.
  void strikeCycleKey() {
    desktop.keyboard().flagsChanged(61, 0x80000);
    desktop.keyboard().flagsChanged(61, 0);
    desktop.settle();
  }
};

/// The part of a screen with this object name; the test fails when there is none.
template <typename Widget>
Widget& part(const QWidget& screen, const char* name) {
  auto* const found = screen.findChild<Widget*>(QLatin1String(name));
  if (found == nullptr) throw std::runtime_error(std::string("no part named ") + name);
  return *found;
}

/// Lets the time pass for which the buttons of what has just come up take no press.
void endPressGuards(const QWidget& screen);

/// The texts of all labels that are shown, in order.
[[nodiscard]] QStringList shownTexts(const QWidget& screen);

}  // namespace mirvane
