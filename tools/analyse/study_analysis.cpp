#include "analyse/study_analysis.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "analyse/record_reader.h"
#include "analyse/report_reader.h"
#include "analyse/session_analysis.h"
#include "recording/recording_lines.h"

namespace mirvane {
namespace {

/// A study of hours takes less; what is larger is no report or record, and would fill the memory.
constexpr std::uintmax_t largestFile = 64U << 20U;

std::string contentsOf(const std::filesystem::path& file) {
  std::error_code error;
  const auto size = std::filesystem::file_size(file, error);
  if (!error && size > largestFile) {
    throw RecordingError(file.string() + ": larger than 64 MB");
  }
  return contentsOfFile(file.string());
}

bool isSame(const LoggedCorrection& a, const LoggedCorrection& b) {
  constexpr double rounding = 0.0006;  // a report has three decimals
  return a.kind == b.kind && a.original == b.original && a.corrected == b.corrected &&
         a.wordIndex == b.wordIndex && std::abs(a.confidence - b.confidence) < rounding;
}

bool isSame(const TypedSession& a, const TypedSession& b) {
  return a.prompt == b.prompt && a.raw == b.raw && a.finalText == b.finalText &&
         std::equal(a.corrections.begin(), a.corrections.end(), b.corrections.begin(),
                    b.corrections.end(),
                    [](const auto& one, const auto& other) { return isSame(one, other); });
}

/// Adds to a session what only the report says of it.
void compareWithReport(TypedSession& session, const TypedSession& report) {
  session.reported = report.reported;
  session.reportMatches = isSame(session, report);
  if (!*session.reportMatches) return;
  for (std::size_t i = 0; i < session.corrections.size(); ++i) {
    session.corrections[i].verdict = report.corrections[i].verdict;
  }
}

SessionSource withRecord(SessionSource source, const std::string& file, const StudyRecord& record) {
  source.recordFile = file;
  source.format = record.format;
  source.program = record.program;
  source.data = record.data;
  source.layout = record.layout;
  source.timeZone = record.timeZone;
  return source;
}

}  // namespace

struct StudyAnalysis::Sources {
  std::vector<std::pair<std::string, StudyRecord>> records;  // by file name
  std::optional<StudyReport> report;
};

StudyAnalysis::StudyAnalysis(ShippedResources& shipped, TableWriter& writer, Tell tell)
    : shipped_(shipped),
      writer_(writer),
      tell_(std::move(tell)),
      nearbyKeys_(shipped.typingConfig()) {}

void StudyAnalysis::add(const StudyFiles& files) {
  Sources sources;
  read(files, sources);
  auto sessions = sessionsOf(files, sources);
  analyse(sessions);
  if (sessions.empty()) return;
  const auto& participant = sessions.front().source.participant;
  if (!participants_.insert(participant).second) {
    tell_("participant " + participant + " has several studies");
  }
  for (const auto& session : sessions) {
    writeSession(session, writer_);
    confusions_.add(session);
  }
  writeParticipant(sessions, writer_);
}

void StudyAnalysis::leaveOut(const std::string& message) {
  ++damagedFiles_;
  tell_(message);
}

template <typename Read>
void StudyAnalysis::orLeaveOut(Read read) {
  try {
    read();
  } catch (const std::runtime_error& error) {
    leaveOut(error.what());
  }
}

void StudyAnalysis::read(const StudyFiles& files, Sources& sources) {
  for (const auto& file : files.records) {
    orLeaveOut([&] {
      sources.records.emplace_back(file.filename().string(),
                                   parseRecord(contentsOf(file), file.string(), shipped_));
    });
  }
  if (!files.report) return;
  orLeaveOut(
      [&] { sources.report = parseReport(contentsOf(*files.report), files.report->string()); });
}

/// Session 1, then session 2.
std::vector<AnalysedSession> StudyAnalysis::sessionsOf(const StudyFiles& files,
                                                       const Sources& sources) {
  SessionSource common{.participant = files.participant};
  if (sources.report) common.reportFile = files.report->filename().string();
  for (const auto& [name, record] : sources.records) {
    if (record.participant) common.participant = *record.participant;
  }
  std::vector<AnalysedSession> sessions;
  for (std::int64_t number = 1; number <= 2; ++number) {
    if (auto session = sessionOf(number, common, sources)) sessions.push_back(std::move(*session));
  }
  return sessions;
}

/// Of the record where there is one, else of the report.
std::optional<AnalysedSession> StudyAnalysis::sessionOf(std::int64_t number,
                                                        const SessionSource& common,
                                                        const Sources& sources) {
  auto recorded = recordedSession(number, common, sources);
  if (!sources.report) return recorded;
  const auto& report = sources.report->sessions.at(static_cast<std::size_t>(number - 1));
  if (!recorded) return AnalysedSession{common, report};
  compareWithReport(recorded->session, report);
  if (!*recorded->session.reportMatches) {
    tell_(common.reportFile + ": session " + std::to_string(number) + " is not as in " +
          recorded->source.recordFile);
  }
  return recorded;
}

std::optional<AnalysedSession> StudyAnalysis::recordedSession(std::int64_t number,
                                                              const SessionSource& common,
                                                              const Sources& sources) {
  std::optional<AnalysedSession> found;
  for (const auto& [name, record] : sources.records) {
    for (const auto& session : record.sessions) {
      if (session.number != number) continue;
      if (found) {
        leaveOut(name + ": session " + std::to_string(number) + " is in " +
                 found->source.recordFile + " too");
      } else {
        found = AnalysedSession{withRecord(common, name, record), session};
      }
    }
  }
  return found;
}

/// A session that cannot be analysed is taken out.
void StudyAnalysis::analyse(std::vector<AnalysedSession>& sessions) {
  std::erase_if(sessions, [&](AnalysedSession& session) {
    try {
      session.analysis = analyseSession(session.session, shipped_.typingConfig(), nearbyKeys_);
      return false;
    } catch (const std::runtime_error& error) {
      const auto& source = session.source;
      leaveOut((source.recordFile.empty() ? source.reportFile : source.recordFile) + ": session " +
               std::to_string(session.session.number) + ": " + error.what());
      return true;
    }
  });
}

}  // namespace mirvane
