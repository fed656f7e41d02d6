#pragma once

#include "language/english_language.h"
#include "model/typing_config.h"
#include "model/user_settings.h"
#include "platform/linux/json_user_defaults.h"
#include "platform/linux/other_applications.h"
#include "platform/linux/qt_accessibility.h"
#include "platform/linux/qt_event_monitors.h"
#include "platform/linux/qt_key_event_poster.h"
#include "platform/linux/qt_save_panel.h"
#include "platform/linux/qt_task_queue.h"
#include "platform/linux/qt_workspace.h"
#include "platform/linux/resource_bundle.h"
#include "platform/linux/system_clock.h"
#include "session/correction_engine.h"
#include "suggest/suggestion_engine.h"

namespace mirvane {

/// Every object that the application has once, built in the order in which they need each other.
/// The only place that chooses the adapters.
class Composition {
 public:
  /// Needs the toolkit's application object.
  Composition();
  Composition(const Composition&) = delete;
  Composition& operator=(const Composition&) = delete;

  [[nodiscard]] const Bundle& bundle() const { return bundle_; }
  [[nodiscard]] Accessibility& accessibility() { return accessibility_; }
  [[nodiscard]] Workspace& workspace() { return workspace_; }
  [[nodiscard]] EventMonitors& monitors() { return monitors_; }
  [[nodiscard]] TaskQueue& tasks() { return tasks_; }
  [[nodiscard]] const Clock& clock() const { return clock_; }
  /// Whether what is typed in other programs can be read and corrected on this desktop.
  [[nodiscard]] bool reachesOtherPrograms() const { return others_ != nullptr; }
  [[nodiscard]] SavePanel& savePanel() { return savePanel_; }

  /// What every correction engine needs.
  [[nodiscard]] EngineServices engineServices();

 private:
  SystemClock clock_;
  QtTaskQueue tasks_;
  std::unique_ptr<OtherApplications> others_;
  QtEventMonitors monitors_;
  QtWorkspace workspace_;
  QtAccessibility accessibility_;
  QtKeyEventPoster keyEventPoster_;
  QtSavePanel savePanel_;
  ResourceBundle bundle_;
  JsonUserDefaults defaults_;
  const TypingConfig config_;
  UserSettings settings_;
  EnglishLanguage language_;
  ContextScore::Vocabulary vocabulary_;
  SuggestionEngine suggestionEngine_;
};

}  // namespace mirvane
