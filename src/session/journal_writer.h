#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/journal_file.h"
#include "session/unsaved_study.h"

namespace mirvane {

/// What has come to a study since the last time.
struct JournalBatch {
  std::vector<StudyEvent> events;
  UnsavedStudy study;
};

/// What is found of an earlier run.
struct FoundJournal {
  JournalFile::Claim claim = JournalFile::Claim::impossible;
  std::optional<Journal> journal = {};
};

/// Claims the file and reads what an earlier run left. What cannot be taken up, or asks for other
/// prompts or another participant, is set aside.
[[nodiscard]] FoundJournal openJournal(JournalFile& file, const StudyHeader& study);

/// Keeps the file at the latest state of the study. Whatever fails is tried again with the next
/// `store`, and until then the file ends with a whole state, or with a torn line behind one.
class JournalWriter {
 public:
  /// Goes on with the journal that was `found`, or begins one. Where the file could not be claimed
  /// then, it is tried again; what lies there is set aside.
  JournalWriter(JournalFile& file, StudyHeader header, const FoundJournal& found);

  void add(JournalBatch batch);

  /// Whether nothing is left to be written.
  [[nodiscard]] bool isUpToDate() const { return !study_; }

  /// Writes what was added. False when that did not work; it may the next time.
  [[nodiscard]] bool store();

  /// Forgets the study, in the file too.
  void discard();

 private:
  [[nodiscard]] bool isClaimed();
  [[nodiscard]] bool hasWholeEnd();
  [[nodiscard]] std::string lines() const;

  JournalFile& file_;
  StudyHeader header_;
  bool isMine_;
  std::uint64_t size_ = 0;  ///< bytes that are whole
  bool isTorn_ = false;     ///< there may be more behind them
  JournalLines journalLines_;
  std::vector<StudyEvent> events_;
  std::optional<UnsavedStudy> study_;
};

}  // namespace mirvane
