#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "observation/observable.h"
#include "platform/journal_file.h"
#include "recording/study_recording.h"
#include "session/journal_keeper.h"
#include "session/session_recorder.h"

namespace mirvane {

/// Keeps a study from its first session until it is saved, so that it outlives the program, and
/// takes up what an earlier run left. All on the main thread, which never waits for the disk.
class StudyKeeping {
 public:
  /// The raw values of the steps that are kept.
  static constexpr std::int64_t session1 = 2, session2 = 3, results = 4;

  struct Session {
    CorrectionEngine& engine;
    Observable<std::string>& typedText;
  };

  /// `header` tells what study this is; its sessions are filled in here. Without a file nothing is
  /// kept. The sessions must outlive this object.
  StudyKeeping(const SessionRecorder::Platform& platform, StudyHeader header,
               std::shared_ptr<JournalFile> file, std::array<Session, 2> sessions);

  /// Hands over what has come lately.
  ~StudyKeeping() { keep(); }
  StudyKeeping(const StudyKeeping&) = delete;
  StudyKeeping& operator=(const StudyKeeping&) = delete;

  /// Called when there is something to be kept: `keep` is due within half a second.
  std::function<void()> onChange;

  /// What an earlier run left to be taken up; null when there is nothing.
  [[nodiscard]] const Journal* found() const;

  /// Takes it up: the engines and texts are as they were. Answers the raw value of its step.
  [[nodiscard]] std::int64_t takeUp();

  /// Forgets it instead, in the file too.
  void startAfresh();

  /// A step has begun, after its texts are what they are at its beginning.
  void stepChanged(std::int64_t step);

  /// Hands over what has come to the study.
  void keep();

  /// Does so and waits until it is kept, for `patience` at most. Whether it is.
  bool flush(std::chrono::milliseconds patience);

  /// The report is saved or not wanted: there is nothing to be kept any more.
  void forget();

  /// Everything recorded, as a recording of both sessions.
  [[nodiscard]] StudyRecording recording() const;

 private:
  struct Kept {
    Session session;
    SessionRecorder recorder;
    std::size_t handedOver = 0;  ///< how many of its events
  };

  Kept& keptOf(std::int64_t step) { return step == session1 ? first_ : second_; }
  void announce() const;
  void begin();
  void restore(Kept& kept, const UnsavedSession& unsaved, std::vector<RecordedEvent> events);
  [[nodiscard]] JournalBatch batch();
  [[nodiscard]] UnsavedSession stateOf(const Kept& kept) const;

  SessionRecorder::Platform platform_;
  StudyHeader header_;
  std::shared_ptr<JournalFile> file_;
  Kept first_, second_;
  std::array<Subscription, 2> textSubscriptions_;
  FoundJournal found_;
  std::unique_ptr<JournalKeeper> keeper_;
  std::int64_t step_ = 0;
  bool isFrozen_ = false;  ///< at the results, once they are kept
};

}  // namespace mirvane
