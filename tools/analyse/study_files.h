#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace mirvane {

/// The files of one participant's study, in one folder and of one name.
struct StudyFiles {
  std::string participant = {};  ///< as the names say
  std::vector<std::filesystem::path> records = {};
  std::optional<std::filesystem::path> report = {};
};

struct FoundFiles {
  std::vector<StudyFiles> studies = {};             ///< by folder and name
  std::vector<std::filesystem::path> ignored = {};  ///< what else was in the folders
};

/// Sorts named files, and all files in and below named folders, into studies: *.txt are reports,
/// *.jsonl records. A report and a record of the same name belong together, and so do records whose
/// names differ in a session number at their end. Throws a `UsageError` for a name that is neither
/// a folder nor such a file.
[[nodiscard]] FoundFiles findStudyFiles(const std::vector<std::string>& names);

}  // namespace mirvane
