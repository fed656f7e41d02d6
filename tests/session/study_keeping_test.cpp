#include "session/study_keeping.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <regex>
#include <string>
#include <vector>

#include "model/user_settings.h"
#include "platform/simulated/desktop.h"
#include "platform/simulated/in_memory_journal_file.h"
#include "platform/simulated/in_memory_user_defaults.h"
#include "recording/recording_lines.h"
#include "session/results_report.h"
#include "session/session_snapshot.h"
#include "session/unsaved_study.h"
#include "support/scripted_english.h"

namespace mirvane {
namespace {

using simulated::InMemoryJournalFile;
using simulated::JournalDisk;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using namespace std::chrono_literals;

constexpr auto patience = 10s;

StudyHeader study(const std::string& participant = "P07") {
  return {.program = "1.0", .participant = participant, .prompts = {"Hello the help", "Say help"}};
}

/// One run of the program: the sessions, each with its field, and what keeps them.
class StudyRun {
 public:
  explicit StudyRun(JournalDisk& disk, const StudyHeader& header = study(), double uptime = 3600)
      : file(std::make_shared<InMemoryJournalFile>(disk)) {
    desktop.clock().setMonotonicSeconds(uptime);
    for (auto* const engine : {&engine1, &engine2}) engine->reset();
    keeping = std::make_unique<StudyKeeping>(
        SessionRecorder::Platform{desktop.monitors(), desktop.tasks(), desktop.clock()}, header,
        file,
        std::array<StudyKeeping::Session, 2>{StudyKeeping::Session{engine1, text1},
                                             {engine2, text2}});
  }

  ~StudyRun() {
    engine().stopTracking();
    desktop.settle();
  }
  StudyRun(const StudyRun&) = delete;
  StudyRun& operator=(const StudyRun&) = delete;

  CorrectionEngine& engine() { return step < 3 ? engine1 : engine2; }
  Observable<std::string>& text() { return step < 3 ? text1 : text2; }

  void show(std::int64_t shown) {
    if (step > 1) engine().stopTracking();
    step = shown;
    if (step > 3) return;
    field = &desktop.openElement(simulated::ElementKind::multiLine, *text(), {.isOwn = true});
    engine().startTracking();
  }

  void goTo(std::int64_t next) {
    keeping->stepChanged(next);
    show(next);
  }

  void takeUp() {
    show(keeping->takeUp());
    engine().resume();
  }

  /// What the participant does: a letter, "|" for the cycle key, "^" for the first chip, "!" for
  /// Reset, ">" for Done.
  void act(char action) {
    switch (action) {
      case '|':
        desktop.keyboard().flagsChanged(61, 0x80000);
        if (engine().typingViewModel().suggestionCycler().cycle()) engine().refreshSuggestions();
        break;
      case '^':
        engine().typingViewModel().applySuggestion(engine().suggestions()->at(0));
        engine().refreshSuggestions();
        break;
      case '!':
        engine().reset();
        field->setText({});
        break;
      case '>':
        goTo(step + 1);
        break;
      default:
        desktop.type(std::string_view(&action, 1));
    }
    desktop.settle();
    if (step < 4) text().set(field->text());
  }

  void act(std::string_view actions) {
    for (const char action : actions) act(action);
  }

  bool keep() { return keeping->flush(patience); }

  std::string report() {
    return resultsReportText(
        makeSessionSnapshot(1, "Hello the help", *text1, engine1, engine1.elapsed()),
        makeSessionSnapshot(2, "Say help", *text2, engine2, engine2.elapsed()),
        desktop.clock().now());
  }

  simulated::Desktop desktop;
  simulated::InMemoryUserDefaults defaults;
  UserSettings settings{defaults, desktop.workspace()};
  const TypingConfig config;
  ScriptedEnglish english{everydayScript()};
  SuggestionEngine suggestionEngine{config, settings, english.services()};
  EngineServices services{{desktop.monitors(), desktop.workspace(), desktop.tasks()},
                          {config, settings, suggestionEngine, desktop.accessibility(),
                           desktop.poster(), desktop.clock()}};
  CorrectionEngine engine1{services};
  CorrectionEngine engine2{services};
  Observable<std::string> text1;
  Observable<std::string> text2;
  std::shared_ptr<InMemoryJournalFile> file;
  std::unique_ptr<StudyKeeping> keeping;
  simulated::TextElement* field = nullptr;
  std::int64_t step = 0;
};

std::string withoutDates(const std::string& report) {
  return std::regex_replace(report, std::regex("  t=\\d\\d:\\d\\d:\\d\\d|Generated:[^\n]*"), "");
}

/// Two sessions with every kind of correction, in session 1 after a first try.
const std::string wholeStudy = "hekp teh!Helo teh he^ hekp >say helo || hellllo|the ";

TEST(StudyKeeping, GoesOnAfterACrashAtEveryPointAsIfNothingHadHappened) {
  JournalDisk uninterruptedDisk;
  StudyRun uninterrupted(uninterruptedDisk);
  uninterrupted.goTo(2);
  uninterrupted.act(wholeStudy);
  uninterrupted.goTo(4);
  const auto wanted = uninterrupted.report();
  ASSERT_THAT(wanted, HasSubstr("[cycle]"));
  ASSERT_THAT(wanted, HasSubstr("[manual]"));
  const auto wantedEvents = uninterrupted.keeping->recording().events;

  for (std::size_t crash = 0; crash <= wholeStudy.size(); ++crash) {
    SCOPED_TRACE(wholeStudy.substr(0, crash));
    JournalDisk disk;
    {
      StudyRun run(disk);
      run.goTo(2);
      run.act(wholeStudy.substr(0, crash));
      ASSERT_TRUE(run.keep());
    }
    StudyRun run(disk, study(), 50);
    ASSERT_NE(run.keeping->found(), nullptr);
    run.takeUp();
    run.act(wholeStudy.substr(crash));
    run.goTo(4);
    EXPECT_EQ(withoutDates(run.report()), withoutDates(wanted));
    const auto events = run.keeping->recording().events;
    ASSERT_THAT(events, SizeIs(wantedEvents.size()));
    for (std::size_t i = 0; i < events.size(); ++i) {
      EXPECT_EQ(formatStudyEvent(events[i]), formatStudyEvent(wantedEvents[i]));
    }
  }
}

TEST(StudyKeeping, StaysAtTheResultsUntilTheReportIsSaved) {
  JournalDisk disk;
  std::string report;
  {
    StudyRun run(disk);
    run.goTo(2);
    run.act("helo >helo >");
    report = run.report();
    run.desktop.advance(500);
    ASSERT_TRUE(run.keep());
  }
  StudyRun run(disk);
  EXPECT_EQ(run.keeping->takeUp(), 4);
  EXPECT_EQ(withoutDates(run.report()), withoutDates(report));
  run.keeping->forget();
  EXPECT_FALSE(disk.file);
}

TEST(StudyKeeping, CountsOnWithoutThePauseAndKeepsTheDate) {
  JournalDisk disk;
  Clock::DateTime start;
  {
    StudyRun run(disk);
    start = run.engine1.sessionStart();
    run.desktop.advance(60);
    run.goTo(2);
    run.act("he");
    ASSERT_TRUE(run.keep());
  }
  StudyRun run(disk);
  run.desktop.clock().setNow(run.desktop.clock().now() + 24h);
  run.takeUp();
  EXPECT_NEAR(run.engine1.elapsed(), 60.36, 1e-6);
  EXPECT_EQ(run.engine1.sessionStart(), start);
}

TEST(StudyKeeping, CountsTheKeysOfADisplayWithAnotherClock) {
  JournalDisk disk;
  const auto strike = [](StudyRun& run, double timestamp) {
    run.desktop.keyboard().press({4, "h"}, {timestamp});
    run.desktop.settle();
    run.desktop.advance(0.2);
  };
  {
    StudyRun run(disk);
    run.goTo(2);
    run.desktop.advance(5);
    for (const double timestamp : {7.0, 7.2}) strike(run, timestamp);
    const auto& events = run.keeping->recording().events;
    ASSERT_THAT(events, SizeIs(2));
    EXPECT_NEAR(events[0].event.t, 5, 1e-5);
    EXPECT_NEAR(events[1].event.t, 5.2, 1e-5);
    ASSERT_TRUE(run.keep());
  }
  StudyRun run(disk);
  run.takeUp();
  strike(run, 3.0);
  EXPECT_NEAR(run.keeping->recording().events.back().event.t, 5.4, 1e-5);
  EXPECT_FALSE(run.engine1.keyInputTracker().events()->front().inputGap);
}

TEST(StudyKeeping, HoldsNoKeyOfAnotherProgram) {
  JournalDisk disk;
  StudyRun run(disk);
  run.goTo(2);
  run.act("helo ");
  auto& other = run.desktop.openElement(simulated::ElementKind::multiLine, {}, {"org.mail"});
  run.desktop.type("teh ");
  run.engine1.typingViewModel().suggestionCycler().cycle();
  run.desktop.type("canary7");
  run.desktop.settle();
  ASSERT_THAT(other.text(), HasSubstr("canary7"));
  ASSERT_THAT(run.engine1.measurements().rawInputLog, HasSubstr("canary7"));
  ASSERT_TRUE(run.keep());
  const auto events = formatStudyRecording(run.keeping->recording());
  EXPECT_THAT(events, HasSubstr("\"original\":\"helo\""));
  EXPECT_THAT(events, Not(HasSubstr("teh")));
  for (const char* key : {"\"c\"", "\"n\"", "\"7\""}) EXPECT_THAT(events, Not(HasSubstr(key)));
  // The report has them, and so has the state; the events have not.
  const auto journal = parseJournal(*disk.file);
  ASSERT_TRUE(journal);
  EXPECT_THAT(journal->study.sessions[0].state.measurements.rawInputLog, HasSubstr("canary7"));
  EXPECT_FALSE(journal->study.sessions[0].state.cycled);
  std::string kept;
  for (const auto& event : journal->events) kept += formatStudyEvent(event);
  EXPECT_THAT(kept, Not(HasSubstr("\"7\"")));
  EXPECT_THAT(kept, Not(HasSubstr("teh")));
}

TEST(StudyKeeping, NeverLeavesHalfAStateWhicheverCallFails) {
  constexpr std::size_t calls = 40;
  for (std::size_t failing = 0; failing < calls; ++failing) {
    for (const auto last : {failing + 1, failing + 4}) {
      SCOPED_TRACE(std::to_string(failing) + " to " + std::to_string(last));
      JournalDisk disk;
      bool hasBeenKept = false;
      {
        StudyRun run(disk);
        run.file->failCalls(failing, last);
        run.goTo(2);
        // The texts since the last that was said to be kept. Whatever failed, the disk has one.
        std::vector<std::string> possible{""};
        for (const char key : std::string_view("helo teh ")) {
          run.act(key);
          const bool isKept = run.keep();
          if (isKept) possible.clear();
          possible.push_back(*run.text1);
          const auto journal = parseJournal(disk.file.value_or(""));
          if (isKept) {
            ASSERT_TRUE(journal);
            ASSERT_EQ(disk.synced, disk.file);
          }
          hasBeenKept = hasBeenKept || isKept;
          ASSERT_TRUE(journal || !hasBeenKept);
          if (journal) {
            ASSERT_THAT(possible, Contains(journal->study.sessions[0].typedText));
          }
        }
        bool isKept = false;
        for (int attempt = 0; attempt < 5 && !isKept; ++attempt) isKept = run.keep();
        ASSERT_TRUE(isKept);
        EXPECT_EQ(*run.text1, "hello the ");
      }
      StudyRun run(disk);
      ASSERT_NE(run.keeping->found(), nullptr);
      run.takeUp();
      EXPECT_EQ(*run.text1, "hello the ");
      EXPECT_EQ(run.engine1.measurements().rawInputLog, "helo teh ");
    }
  }
}

TEST(StudyKeeping, TakesUpWhatAPowerCutLeaves) {
  JournalDisk disk;
  {
    StudyRun run(disk);
    run.goTo(2);
    run.act("helo ");
    ASSERT_TRUE(run.keep());
  }
  const auto whole = *disk.synced;
  for (const auto& torn : {std::string("{\"sta"), std::string("{\"session\":1,\"t\":1,\"ty")}) {
    disk.file = whole + torn;
    StudyRun run(disk);
    ASSERT_NE(run.keeping->found(), nullptr);
    run.takeUp();
    run.act("x");
    ASSERT_TRUE(run.keep());
    EXPECT_THAT(disk.setAside, IsEmpty());
    EXPECT_EQ(parseJournal(*disk.file)->study.sessions[0].typedText, "hello x");
    EXPECT_FALSE(parseJournal(*disk.file)->isDamaged);
  }
}

TEST(StudyKeeping, SetsAsideWhatIsNotItsOwn) {
  JournalDisk made;
  {
    StudyRun run(made);
    run.goTo(2);
    run.act("helo ");
    ASSERT_TRUE(run.keep());
  }
  const auto whole = *made.file;
  auto newer = whole;
  newer.replace(newer.find("\"journal\":1"), 11, "\"journal\":2");
  auto otherPrompt = study();
  otherPrompt.prompts[0] = "Another";
  struct Row {
    std::string contents;
    StudyHeader header;
    bool isTakenUp, isSetAside;
  };
  const Row rows[] = {
      {whole, study(), true, false},
      {whole, otherPrompt, false, true},
      {whole, study("P08"), false, true},
      {newer, study(), false, true},
      {"rubbish", study(), false, true},
      {"rubbish\n\n", study(), false, true},
      {whole.substr(0, whole.find('\n') + 1), study(), false, true},
      {whole + "rubbish\n", study(), true, true},
      {std::string(5000, '\0'), study(), false, true},
      {"", study(), false, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.contents.substr(0, 60));
    JournalDisk disk{.file = row.contents, .synced = row.contents};
    StudyRun run(disk, row.header);
    EXPECT_EQ(run.keeping->found() != nullptr, row.isTakenUp);
    EXPECT_EQ(disk.setAside,
              row.isSetAside ? std::vector{row.contents} : std::vector<std::string>{});
    if (row.isTakenUp) {
      run.takeUp();
    } else {
      run.goTo(2);
    }
    run.act("y");
    ASSERT_TRUE(run.keep());
    EXPECT_EQ(parseJournal(*disk.file)->study.sessions[0].typedText,
              row.isTakenUp ? "hello y" : "y");
  }
}

TEST(StudyKeeping, SetsNothingAsideThatItCouldNotRead) {
  JournalDisk made{.file = "of somebody", .synced = {}};
  // The claim, then reading and setting aside.
  for (const auto& [first, last] : {std::pair{0, 1}, {1, 3}}) {
    JournalDisk disk = made;
    StudyRun run(disk);
    run.keeping.reset();
    run.file = std::make_shared<InMemoryJournalFile>(disk);
    run.file->failCalls(static_cast<std::size_t>(first), static_cast<std::size_t>(last));
    disk = made;
    run.keeping = std::make_unique<StudyKeeping>(
        SessionRecorder::Platform{run.desktop.monitors(), run.desktop.tasks(), run.desktop.clock()},
        study(), run.file,
        std::array<StudyKeeping::Session, 2>{StudyKeeping::Session{run.engine1, run.text1},
                                             {run.engine2, run.text2}});
    EXPECT_EQ(run.keeping->found(), nullptr);
    run.goTo(2);
    run.act("y");
    ASSERT_TRUE(run.keep());
    EXPECT_EQ(disk.setAside, std::vector<std::string>{"of somebody"});
    EXPECT_EQ(parseJournal(*disk.file)->study.sessions[0].typedText, "y");
  }
}

TEST(StudyKeeping, LeavesTheFileOfAnotherStudyThatRuns) {
  JournalDisk disk;
  StudyRun first(disk);
  first.goTo(2);
  first.act("helo ");
  ASSERT_TRUE(first.keep());
  const auto before = disk.file;
  StudyRun second(disk);
  EXPECT_EQ(second.keeping->found(), nullptr);
  second.goTo(2);
  second.act("abc");
  EXPECT_FALSE(second.keep());
  second.keeping->forget();
  EXPECT_EQ(disk.file, before);
}

TEST(StudyKeeping, ForgetsWhatTheParticipantDeclines) {
  JournalDisk disk;
  {
    StudyRun run(disk);
    run.goTo(2);
    run.act("helo ");
    ASSERT_TRUE(run.keep());
  }
  StudyRun run(disk);
  ASSERT_NE(run.keeping->found(), nullptr);
  run.keeping->startAfresh();
  EXPECT_FALSE(disk.file);
  EXPECT_EQ(run.keeping->found(), nullptr);
  run.goTo(2);
  run.act("a");
  ASSERT_TRUE(run.keep());
  EXPECT_EQ(parseJournal(*disk.file)->study.sessions[0].typedText, "a");
}

TEST(StudyKeeping, KeepsNothingBeforeTheFirstSessionOrWithoutAFile) {
  JournalDisk disk;
  StudyRun run(disk);
  bool isAnnounced = false;
  run.keeping->onChange = [&] { isAnnounced = true; };
  run.keeping->stepChanged(1);
  EXPECT_FALSE(run.keep());
  EXPECT_FALSE(disk.file);
  run.goTo(2);
  run.act("a");
  EXPECT_TRUE(isAnnounced);
}

}  // namespace
}  // namespace mirvane
