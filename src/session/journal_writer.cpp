#include "session/journal_writer.h"

#include <utility>

namespace mirvane {
namespace {

bool isOfStudy(const Journal& journal, const StudyHeader& study) {
  return journal.header.prompts == study.prompts && journal.header.participant == study.participant;
}

}  // namespace

FoundJournal openJournal(JournalFile& file, const StudyHeader& study) {
  FoundJournal found{.claim = file.claim()};
  if (found.claim != JournalFile::Claim::mine) return found;
  const auto contents = file.contents();
  if (contents && contents->empty()) return found;
  if (contents) found.journal = parseJournal(*contents);
  const bool isTakenUp = found.journal && isOfStudy(*found.journal, study);
  // A damaged one is kept for somebody to look at beside what can be read of it.
  const bool isSetAside = (isTakenUp && !found.journal->isDamaged) || file.setAside();
  if (!isTakenUp) found.journal.reset();
  if (!isSetAside) found.claim = JournalFile::Claim::impossible;
  return found;
}

JournalWriter::JournalWriter(JournalFile& file, StudyHeader header, const FoundJournal& found)
    : file_(file), header_(std::move(header)), isMine_(found.claim == JournalFile::Claim::mine) {
  if (!found.journal) return;
  if (found.journal->isDamaged) {
    add({found.journal->events, found.journal->study});
  } else {
    size_ = found.journal->size;
    isTorn_ = true;
  }
}

void JournalWriter::add(JournalBatch batch) {
  events_.insert(events_.end(), std::make_move_iterator(batch.events.begin()),
                 std::make_move_iterator(batch.events.end()));
  study_ = std::move(batch.study);
}

bool JournalWriter::store() {
  if (isUpToDate()) return true;
  if (!isClaimed() || !hasWholeEnd()) return false;
  const auto bytes = lines();
  isTorn_ = true;
  if (!file_.append(bytes) || !file_.sync()) return false;
  isTorn_ = false;
  size_ += bytes.size();
  journalLines_.written(*std::exchange(study_, std::nullopt));
  events_.clear();
  return true;
}

void JournalWriter::discard() {
  events_.clear();
  study_.reset();
  journalLines_ = {};
  size_ = 0;
  isTorn_ = true;
  // A file that cannot be removed may still be emptied: it says nothing then.
  if (isClaimed() && !file_.remove()) static_cast<void>(file_.cutTo(0));
}

bool JournalWriter::isClaimed() {
  if (isMine_) return true;
  if (file_.claim() != JournalFile::Claim::mine) return false;
  const auto contents = file_.contents();
  isMine_ = (contents && contents->empty()) || file_.setAside();
  return isMine_;
}

bool JournalWriter::hasWholeEnd() {
  if (isTorn_) isTorn_ = !file_.cutTo(size_);
  return !isTorn_;
}

std::string JournalWriter::lines() const {
  const auto beginning = size_ == 0 ? JournalLines::beginning(header_) : std::string();
  return beginning + journalLines_.next(events_, *study_);
}

}  // namespace mirvane
