#pragma once

#include "app/study_configuration.h"
#include "language/english_language.h"
#include "model/overridden_defaults.h"
#include "model/typing_config.h"
#include "model/user_settings.h"
#include "platform/journal_file.h"
#include "platform/linux/json_user_defaults.h"
#include "platform/linux/other_applications.h"
#include "platform/linux/portal_save_panel.h"
#include "platform/linux/posix_file_system.h"
#include "platform/linux/qt_accessibility.h"
#include "platform/linux/qt_event_monitors.h"
#include "platform/linux/qt_key_event_poster.h"
#include "platform/linux/qt_task_queue.h"
#include "platform/linux/qt_workspace.h"
#include "platform/linux/system_clock.h"
#include "recording/study_recording.h"
#include "session/correction_engine.h"
#include "suggest/suggestion_engine.h"
#include "views/study_save_panel.h"

namespace mirvane {

/// Every object that the application has once, built in the order in which they need each other.
/// The only place that chooses the adapters.
class Composition {
 public:
  /// Needs the toolkit's application object. `bundle` holds the resources.
  Composition(const StudyConfiguration& study, const Bundle& bundle);
  Composition(const Composition&) = delete;
  Composition& operator=(const Composition&) = delete;

  [[nodiscard]] Accessibility& accessibility() { return accessibility_; }
  [[nodiscard]] Workspace& workspace() { return workspace_; }
  [[nodiscard]] EventMonitors& monitors() { return monitors_; }
  [[nodiscard]] TaskQueue& tasks() { return tasks_; }
  [[nodiscard]] const Clock& clock() const { return clock_; }
  /// Whether what is typed in other programs can be read and corrected on this desktop.
  [[nodiscard]] bool reachesOtherPrograms() const { return others_ != nullptr; }
  [[nodiscard]] SavePanel& savePanel() { return savePanel_; }
  [[nodiscard]] FileSystem& files() { return files_; }

  /// What a recording says of this program and the settings of the sessions.
  [[nodiscard]] StudyHeader studyHeader() const;
  /// Where an unsaved study is kept; null when the study does not want that.
  [[nodiscard]] static std::shared_ptr<JournalFile> journal(const StudyConfiguration& study);

  /// What the engines of the two sessions need.
  [[nodiscard]] EngineServices sessionServices() { return engineServices(sessionSettings_); }
  /// What the engine of the practice needs: it corrects in any study, for there is nothing to be
  /// practised otherwise, and no way on.
  [[nodiscard]] EngineServices practiceServices() { return engineServices(practiceSettings_); }

 private:
  [[nodiscard]] EngineServices engineServices(const UserSettings& settings);

  SystemClock clock_;
  QtTaskQueue tasks_;
  std::unique_ptr<OtherApplications> others_;
  QtEventMonitors monitors_;
  QtWorkspace workspace_;
  QtAccessibility accessibility_;
  QtKeyEventPoster keyEventPoster_;
  PortalSavePanel nativeSavePanel_;
  StudySavePanel savePanel_;
  PosixFileSystem files_;
  JsonUserDefaults defaults_;
  const TypingConfig config_;
  OverriddenDefaults sessionDefaults_;
  OverriddenDefaults practiceDefaults_;
  UserSettings sessionSettings_;
  UserSettings practiceSettings_;
  EnglishLanguage language_;
  ContextScore::Vocabulary vocabulary_;
  SuggestionEngine suggestionEngine_;
};

}  // namespace mirvane
