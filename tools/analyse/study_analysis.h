#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "analyse/study_files.h"
#include "analyse/table.h"
#include "analyse/tables.h"
#include "suggest/nearby_keys.h"
#include "support/shipped_resources.h"

namespace mirvane {

/// Analyses studies one after the other and writes their rows; keeps no study.
class StudyAnalysis {
 public:
  /// Told of every damaged file and whatever else a team should know.
  using Tell = std::function<void(const std::string& message)>;

  /// Everything must outlive the analysis.
  StudyAnalysis(ShippedResources& shipped, TableWriter& writer, Tell tell);

  void add(const StudyFiles& files);

  /// Writes what is only known after the last study.
  void finish() { confusions_.write(writer_); }

  /// Files that were left out.
  [[nodiscard]] std::size_t damagedFiles() const { return damagedFiles_; }

 private:
  struct Sources;

  void read(const StudyFiles& files, Sources& sources);
  [[nodiscard]] std::vector<AnalysedSession> sessionsOf(const StudyFiles& files,
                                                        const Sources& sources);
  [[nodiscard]] std::optional<AnalysedSession> sessionOf(std::int64_t number,
                                                         const SessionSource& common,
                                                         const Sources& sources);
  [[nodiscard]] std::optional<AnalysedSession> recordedSession(std::int64_t number,
                                                               const SessionSource& common,
                                                               const Sources& sources);
  void analyse(std::vector<AnalysedSession>& sessions);
  void leaveOut(const std::string& message);
  template <typename Read>
  void orLeaveOut(Read read);

  ShippedResources& shipped_;
  TableWriter& writer_;
  Tell tell_;
  NearbyKeys nearbyKeys_;
  Confusions confusions_;
  std::set<std::string> participants_;
  std::size_t damagedFiles_ = 0;
};

}  // namespace mirvane
