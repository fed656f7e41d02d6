#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/bundle.h"
#include "session/study_prompts.h"

namespace mirvane {

/// What a study team sets for its study, in study.json. docs/study-file.md says how.
struct StudyConfiguration {
  QString contactAddress;                                ///< e-mail address of the study team
  std::array<std::string, 2> prompts{prompt1, prompt2};  ///< the sentences of the two sessions
  std::string participant = {};                          ///< a code, or empty
  bool keepsSessionRecord = false;    ///< whether a record is saved beside the report
  bool watchesOtherPrograms = true;   ///< false: only the study's own windows
  bool keepsUnsavedStudy = true;      ///< whether a study that was broken off can be taken up
  bool correctsAutomatically = true;  ///< false in a control condition
};

struct LoadedStudy {
  StudyConfiguration configuration;
  /// What keeps the study from being run as its file says, in words for the study team; empty when
  /// all is well. Such a study must not begin.
  QStringList problems;
  /// What the study team should know before a participant begins.
  QStringList warnings;
};

/// Reads study.json from the resources and, over it, `file` or, without one, the one in the user's
/// configuration folder or, where there is none, in the system's (`/etc/xdg/mirvanetest`).
/// `participant` counts more than any file. A file that is damaged changes nothing: it is named
/// among the problems.
[[nodiscard]] LoadedStudy loadStudy(const Bundle& bundle,
                                    const std::optional<std::filesystem::path>& file = std::nullopt,
                                    const std::optional<std::string>& participant = std::nullopt);

}  // namespace mirvane
