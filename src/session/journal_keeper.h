#pragma once

#include <chrono>
#include <memory>
#include <thread>

#include "session/journal_writer.h"

namespace mirvane {

/// Keeps a study in its journal from a thread of its own: nobody waits for the disk. All calls are
/// on the main thread.
class JournalKeeper {
 public:
  /// Goes on with the journal that was `found`, or begins one.
  JournalKeeper(std::shared_ptr<JournalFile> file, const StudyHeader& header,
                const FoundJournal& found);
  /// Gives what was handed over a moment to reach the disk.
  ~JournalKeeper();
  JournalKeeper(const JournalKeeper&) = delete;
  JournalKeeper& operator=(const JournalKeeper&) = delete;

  /// Hands over what has come to the study. It is written at once, or once the disk takes it.
  void keep(JournalBatch batch);

  /// Waits until all that was handed over is kept, or an attempt has failed; for `patience` at
  /// most. Whether all is kept.
  bool flush(std::chrono::milliseconds patience);

  /// The study is saved or not wanted: forgets it, in the file too. Returns once that is done, or
  /// after `patience`.
  void discard(std::chrono::milliseconds patience);

 private:
  struct Work;

  static void run(Work& work);

  /// Shared with the thread, which may hang in a call to the disk for longer than we live.
  std::shared_ptr<Work> work_;
  std::thread thread_;
};

}  // namespace mirvane
