#include "session/study_keeping.h"

#include <utility>

namespace mirvane {
namespace {

constexpr std::chrono::milliseconds patienceForForgetting{200};

void appendEvents(std::vector<StudyEvent>& all, std::int64_t session,
                  const std::vector<RecordedEvent>& events, std::size_t first) {
  for (auto i = first; i < events.size(); ++i) all.push_back({session, events[i]});
}

}  // namespace

StudyKeeping::StudyKeeping(const SessionRecorder::Platform& platform, StudyHeader header,
                           std::shared_ptr<JournalFile> file, std::array<Session, 2> sessions)
    : platform_(platform),
      header_(std::move(header)),
      file_(std::move(file)),
      first_{sessions[0], {1, sessions[0].engine, platform}},
      second_{sessions[1], {2, sessions[1].engine, platform}} {
  for (auto* const kept : {&first_, &second_}) kept->recorder.onChange = [this] { announce(); };
  textSubscriptions_ = {sessions[0].typedText.subscribe([this] { announce(); }),
                        sessions[1].typedText.subscribe([this] { announce(); })};
  if (file_) found_ = openJournal(*file_, header_);
  // The other study has the only file there is.
  if (found_.claim == JournalFile::Claim::others) file_.reset();
}

void StudyKeeping::announce() const {
  if (keeper_ && onChange) onChange();
}

const Journal* StudyKeeping::found() const {
  return found_.journal ? &*found_.journal : nullptr;
}

std::int64_t StudyKeeping::takeUp() {
  const auto& [header, study, events, size, isDamaged] = *found_.journal;
  std::array<std::vector<RecordedEvent>, 2> own;
  for (const auto& [session, event] : events) own.at(session == 1 ? 0 : 1).push_back(event);
  restore(first_, study.sessions[0], std::move(own[0]));
  restore(second_, study.sessions[1], std::move(own[1]));
  step_ = study.step;
  isFrozen_ = step_ == results;
  begin();
  return step_;
}

void StudyKeeping::restore(Kept& kept, const UnsavedSession& unsaved,
                           std::vector<RecordedEvent> events) {
  kept.handedOver = events.size();
  auto times = unsaved.times;
  // The clock of that run is not this one's.
  times.origin.reset();
  kept.recorder.restore({std::move(times), std::move(events)}, unsaved.seconds);
  kept.session.engine.restore(unsaved.state, kept.recorder.keyEvents());
  kept.session.typedText.set(unsaved.typedText);
}

void StudyKeeping::startAfresh() {
  found_.journal.reset();
  if (file_ && !file_->remove()) static_cast<void>(file_->cutTo(0));
}

void StudyKeeping::stepChanged(std::int64_t step) {
  const auto before = std::exchange(step_, step);
  if (before == session1 || before == session2) {
    auto& ended = keptOf(before);
    ended.recorder.done(*ended.session.typedText);
  }
  if (step < session1) return;
  if (!keeper_) begin();
  keep();
}

void StudyKeeping::begin() {
  if (file_) keeper_ = std::make_unique<JournalKeeper>(file_, header_, found_);
  found_.journal.reset();
}

void StudyKeeping::keep() {
  if (!keeper_ || isFrozen_) return;
  keeper_->keep(batch());
  // From here on only the clock goes on, and the report has what it showed.
  isFrozen_ = step_ == results;
}

bool StudyKeeping::flush(std::chrono::milliseconds patience) {
  if (!keeper_) return false;
  keep();
  return keeper_->flush(patience);
}

void StudyKeeping::forget() {
  if (keeper_) keeper_->discard(patienceForForgetting);
  keeper_.reset();
  file_.reset();
}

JournalBatch StudyKeeping::batch() {
  JournalBatch batch;
  for (auto* const kept : {&first_, &second_}) {
    const auto& record = kept->recorder.record();
    appendEvents(batch.events, record.times.session, record.events, kept->handedOver);
    kept->handedOver = record.events.size();
  }
  batch.study = {platform_.clock.now(), step_, {stateOf(first_), stateOf(second_)}};
  return batch;
}

UnsavedSession StudyKeeping::stateOf(const Kept& kept) const {
  UnsavedSession unsaved{kept.session.engine.state(), *kept.session.typedText,
                         kept.recorder.seconds(), kept.recorder.record().times};
  // What can be cycled was typed elsewhere: that is the report's only once it has been cycled.
  if (!kept.recorder.wasLastKeyOwn()) unsaved.state.cycled.reset();
  return unsaved;
}

StudyRecording StudyKeeping::recording() const {
  StudyRecording recording{header_, {}};
  for (const auto* const kept : {&first_, &second_}) {
    const auto& record = kept->recorder.record();
    recording.header.sessions.push_back(record.times);
    appendEvents(recording.events, record.times.session, record.events, 0);
  }
  return recording;
}

}  // namespace mirvane
