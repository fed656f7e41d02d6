#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "analyse/record_reader.h"
#include "analyse/session_analysis.h"
#include "analyse/table.h"
#include "analyse/typed_session.h"

namespace mirvane {

/// Whose session it is, and where it was read.
struct SessionSource {
  std::string participant = {};
  std::string recordFile = {};  ///< names without folders; empty when there is none
  std::string reportFile = {};
  std::optional<std::int64_t> format = {};  ///< of the record
  std::optional<std::string> program = {}, data = {}, layout = {}, timeZone = {};
};

/// A session with all that is known of it: what a row of sessions.csv is made of.
struct AnalysedSession {
  SessionSource source;
  TypedSession session;
  SessionAnalysis analysis = {};
};

/// The tables in the order of docs/formats/tables.md.
[[nodiscard]] const std::vector<Table>& analysisTables();

/// The rows of one session in sessions, corrections and keys.
void writeSession(const AnalysedSession& session, TableWriter& writer);

/// The row of one participant, whose sessions these are.
void writeParticipant(const std::vector<AnalysedSession>& sessions, TableWriter& writer);

/// Counts which key was pressed for which character.
class Confusions {
 public:
  void add(const AnalysedSession& session);
  void write(TableWriter& writer) const;

 private:
  using Pair = std::pair<std::string, std::string>;  // meant, typed

  std::map<std::int64_t, std::map<Pair, std::int64_t>> counts_;  // by session
};

}  // namespace mirvane
