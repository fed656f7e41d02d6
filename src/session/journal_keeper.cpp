#include "session/journal_keeper.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

namespace mirvane {
namespace {

using namespace std::chrono_literals;

constexpr auto pauseAfterFailure = 1s;
constexpr auto patienceAtTheEnd = 500ms;

/// Adds the second batch to what waits.
void join(std::optional<JournalBatch>& waiting, JournalBatch batch) {
  if (!waiting) {
    waiting = std::move(batch);
    return;
  }
  waiting->events.insert(waiting->events.end(), std::make_move_iterator(batch.events.begin()),
                         std::make_move_iterator(batch.events.end()));
  waiting->study = std::move(batch.study);
}

}  // namespace

struct JournalKeeper::Work {
  Work(std::shared_ptr<JournalFile> journal, const StudyHeader& header, const FoundJournal& found)
      : file(std::move(journal)), writer(*file, header, found) {}

  std::shared_ptr<JournalFile> file;
  JournalWriter writer;  ///< the thread's alone

  std::mutex mutex;
  std::condition_variable changed;
  // All that follows is guarded by the mutex.
  std::optional<JournalBatch> waiting;
  bool isDiscarded = false;
  bool isEnding = false;
  bool isBusy = false;
  bool hasFailed = false;
  bool hasEnded = false;

  [[nodiscard]] bool hasWork() const { return waiting || isDiscarded; }
};

JournalKeeper::JournalKeeper(std::shared_ptr<JournalFile> file, const StudyHeader& header,
                             const FoundJournal& found)
    : work_(std::make_shared<Work>(std::move(file), header, found)) {
  thread_ = std::thread([work = work_] { run(*work); });
}

JournalKeeper::~JournalKeeper() {
  flush(patienceAtTheEnd);
  std::unique_lock lock(work_->mutex);
  work_->isEnding = true;
  work_->changed.notify_all();
  const bool hasEnded =
      work_->changed.wait_for(lock, patienceAtTheEnd, [&] { return work_->hasEnded; });
  lock.unlock();
  if (hasEnded) {
    thread_.join();
  } else {
    thread_.detach();
  }
}

void JournalKeeper::keep(JournalBatch batch) {
  const std::scoped_lock lock(work_->mutex);
  join(work_->waiting, std::move(batch));
  work_->changed.notify_all();
}

bool JournalKeeper::flush(std::chrono::milliseconds patience) {
  std::unique_lock lock(work_->mutex);
  work_->changed.wait_for(lock, patience, [&] { return !work_->hasWork() && !work_->isBusy; });
  return !work_->hasWork() && !work_->isBusy && !work_->hasFailed;
}

void JournalKeeper::discard(std::chrono::milliseconds patience) {
  {
    const std::scoped_lock lock(work_->mutex);
    work_->waiting.reset();
    work_->isDiscarded = true;
    work_->changed.notify_all();
  }
  flush(patience);
}

void JournalKeeper::run(Work& work) {
  std::unique_lock lock(work.mutex);
  while (!work.isEnding) {
    const auto isCalled = [&] { return work.hasWork() || work.isEnding; };
    if (work.hasFailed) {
      work.changed.wait_for(lock, pauseAfterFailure, isCalled);
    } else {
      work.changed.wait(lock, isCalled);
    }
    if (work.isEnding) break;
    auto batch = std::exchange(work.waiting, std::nullopt);
    const bool isDiscarded = std::exchange(work.isDiscarded, false);
    work.isBusy = true;
    lock.unlock();
    if (isDiscarded) work.writer.discard();
    if (batch) work.writer.add(*std::move(batch));
    const bool isStored = work.writer.store();
    lock.lock();
    work.isBusy = false;
    work.hasFailed = !isStored;
    work.changed.notify_all();
  }
  work.hasEnded = true;
  work.changed.notify_all();
}

}  // namespace mirvane
