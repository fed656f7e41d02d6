#include "analyse/study_files.h"

#include <algorithm>
#include <map>
#include <regex>
#include <set>

#include "support/command_line.h"
#include "text/letter_case.h"

namespace mirvane {
namespace {

using Path = std::filesystem::path;

bool hasSuffix(const Path& file, std::string_view suffix) {
  return text::lowercased(file.extension().string()) == suffix;
}

bool isReport(const Path& file) {
  return hasSuffix(file, ".txt");
}

bool isRecord(const Path& file) {
  return hasSuffix(file, ".jsonl");
}

/// "P07" of "P07-session1" and "P07_s2"; empty for "session1".
std::string withoutSessionNumber(const std::string& name) {
  static const std::regex numbered(R"(^(|.*[-_. ])(session|s)[-_ ]?[12]$)",
                                   std::regex::icase | std::regex::optimize);
  std::smatch parts;
  if (!std::regex_match(name, parts, numbered)) return name;
  const std::string kept = parts[1];
  return kept.empty() ? kept : kept.substr(0, kept.size() - 1);
}

std::string participantOf(const Path& file) {
  auto stem = file.stem().string();
  if (isReport(file)) return stem;
  auto kept = withoutSessionNumber(stem);
  if (!kept.empty()) return kept;
  return std::filesystem::absolute(file).lexically_normal().parent_path().filename().string();
}

std::vector<Path> filesBelow(const Path& folder) {
  using Walk = std::filesystem::recursive_directory_iterator;
  std::vector<Path> files;
  for (const auto& entry :
       Walk(folder, std::filesystem::directory_options::skip_permission_denied)) {
    // Opening a pipe or a device would wait for ever.
    if (!entry.is_directory() && !entry.is_other()) files.push_back(entry.path());
  }
  return files;
}

class Sorter {
 public:
  void addFolder(const Path& folder) {
    for (const auto& file : filesBelow(folder)) {
      if (isReport(file) || isRecord(file)) {
        add(file);
      } else {
        ignored_.insert(file);
      }
    }
  }

  void add(const Path& file) {
    if (!seen_.insert(std::filesystem::absolute(file).lexically_normal()).second) return;
    const auto participant = participantOf(file);
    auto& study = studies_[{file.parent_path(), participant}];
    study.participant = participant;
    if (isReport(file)) {
      study.report = file;
    } else {
      study.records.push_back(file);
    }
  }

  FoundFiles sorted() {
    FoundFiles found{.ignored = {ignored_.begin(), ignored_.end()}};
    for (auto& [key, study] : studies_) {
      std::sort(study.records.begin(), study.records.end());
      found.studies.push_back(std::move(study));
    }
    return found;
  }

 private:
  std::map<std::pair<Path, std::string>, StudyFiles> studies_;  // by folder and participant
  std::set<Path> seen_, ignored_;
};

}  // namespace

FoundFiles findStudyFiles(const std::vector<std::string>& names) {
  Sorter sorter;
  for (const Path name : names) {
    if (std::filesystem::is_directory(name)) {
      sorter.addFolder(name);
    } else if (isReport(name) || isRecord(name)) {
      sorter.add(name);
    } else if (std::filesystem::exists(name)) {
      throw UsageError(name.string() + ": neither a report (.txt) nor a record (.jsonl)");
    } else {
      throw UsageError(name.string() + ": no such file or folder");
    }
  }
  return sorter.sorted();
}

}  // namespace mirvane
