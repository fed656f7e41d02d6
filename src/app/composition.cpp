#include "app/composition.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "platform/linux/state_journal_file.h"
#include "version/program_version.h"

namespace mirvane {
namespace {

OverriddenDefaults::Values valuesForSessions(const StudyConfiguration& study) {
  if (study.correctsAutomatically) return {};
  return {{UserSettings::autoCorrectionKey, {false}}};
}

/// The home folder where there is none.
std::filesystem::path documentsFolder() {
  const auto documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return (QFileInfo(documents).isDir() ? documents : QDir::homePath()).toStdString();
}

}  // namespace

Composition::Composition(const StudyConfiguration& study, const Bundle& bundle)
    : others_(study.watchesOtherPrograms ? OtherApplications::connect(tasks_) : nullptr),
      monitors_(tasks_, clock_, others_.get()),
      workspace_(others_.get()),
      accessibility_(others_.get()),
      keyEventPoster_(tasks_, others_.get()),
      savePanel_(nativeSavePanel_, documentsFolder()),
      defaults_(files_, JsonUserDefaults::standardPath()),
      config_(loadTypingConfig(bundle)),
      sessionDefaults_(defaults_, valuesForSessions(study)),
      practiceDefaults_(defaults_, {{UserSettings::autoCorrectionKey, {true}}}),
      sessionSettings_(sessionDefaults_, workspace_),
      practiceSettings_(practiceDefaults_, workspace_),
      language_(loadEnglishLanguage(bundle)),
      vocabulary_(loadVocabulary(bundle)),
      suggestionEngine_(
          config_, sessionSettings_,
          {*language_.spellChecker, language_.embedding.get(), *language_.tagger, vocabulary_}) {}

EngineServices Composition::engineServices(const UserSettings& settings) {
  return {{monitors_, workspace_, tasks_},
          {config_, settings, suggestionEngine_, accessibility_, keyEventPoster_, clock_}};
}

StudyHeader Composition::studyHeader() const {
  return {.program = programVersion,
          .settings = {.isAutoCorrectionEnabled = *sessionSettings_.isAutoCorrectionEnabled(),
                       .allowList = *sessionSettings_.allowList(),
                       .disabledAppBundleIDs = *sessionSettings_.disabledAppBundleIDs()}};
}

std::shared_ptr<JournalFile> Composition::journal(const StudyConfiguration& study) {
  if (!study.keepsUnsavedStudy) return nullptr;
  return std::make_shared<StateJournalFile>(StateJournalFile::standardFolder());
}

}  // namespace mirvane
