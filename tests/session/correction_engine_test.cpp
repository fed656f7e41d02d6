#include "session/correction_engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/session_snapshot.h"
#include "support/correcting_desktop.h"
#include "support/scripted_english.h"

namespace mirvane {
namespace {

using simulated::ScriptedSpellChecker;
using testing::ElementsAre;
using testing::IsEmpty;

const ScriptedSpellChecker::Script words{
    .known = {"hello", "help", "held", "hero", "the"},
    .guesses = {{"helo", {"hello", "help", "held", "hero"}}, {"teh", {"the"}}, {"thhhe", {"the"}}},
    .completions = {}};

/// A tracking engine and the study's own window with a text field.
struct SimulatedSession : private ScriptedEnglish, CorrectingDesktop {
  explicit SimulatedSession(const ScriptedSpellChecker::Script& script = {})
      : ScriptedEnglish({.words = script}), CorrectingDesktop(services()) {}

  CorrectionEngine& operator*() { return engine; }
  CorrectionEngine* operator->() { return &engine; }

  simulated::TextElement& field =
      desktop.openElement(simulated::ElementKind::multiLine, {}, {.isOwn = true});
};

/// The counters in the order of their declaration.
std::vector<std::int64_t> counters(const CorrectionEngine& engine) {
  const auto& m = engine.measurements();
  return {m.keystrokeCount, m.wordsCompleted, m.autoCorrectionCount, m.manualCorrectionCount,
          m.cycleKeyCount,  m.nearbyKeyCount, m.repeatKeyCount};
}

/// "type original>corrected @index" of every log entry.
std::vector<std::string> log(const CorrectionEngine& engine) {
  std::vector<std::string> shown;
  for (const auto& event : engine.measurements().correctionLog) {
    shown.push_back(event.type + ' ' + event.originalWord + '>' + event.correctedWord +
                    (event.wordIndex ? " @" + std::to_string(*event.wordIndex) : ""));
  }
  return shown;
}

void report(CorrectionEngine& engine, const std::string& type) {
  engine.handleCorrection({{}, "a", "b", type, 0.5, 77});
}

TEST(CorrectionEngine, CountsCharactersAndWords) {
  struct Row {
    std::vector<const char*> keys;
    std::int64_t keystrokes, completed;
  };
  const Row rows[] = {
      {{"h", " "}, 2, 1},        {{",", " "}, 2, 2},
      {{"'", "\"", "\r"}, 3, 3}, {{" a"}, 2, 0},
      {{"\r\n"}, 1, 1},          {{"", "x"}, 1, 0},
      {{"e\u0301"}, 1, 0},       {{"👩‍💻😀"}, 2, 0},
      {{"日", "\u3000"}, 2, 1},  {{"-", "\u2019"}, 2, 0},
      {{"\b", "\x1B"}, 2, 0},
  };
  for (const auto& [keys, keystrokes, completed] : rows) {
    SimulatedSession session;
    std::string raw;
    for (const char* key : keys) {
      session->keyInputTracker().handleKeyDown(10, key, 0, 1, {});
      raw += key;
    }
    SCOPED_TRACE(raw);
    EXPECT_EQ(session->measurements().keystrokeCount, keystrokes);
    EXPECT_EQ(session->measurements().wordsCompleted, completed);
    EXPECT_EQ(session->measurements().rawInputLog, raw);
  }
}

TEST(CorrectionEngine, LogsTheIndexOfTheWordThatWasMeant) {
  SimulatedSession session;
  report(*session, "auto-nearby");
  report(*session, "manual");
  session->handleCycle("b", "c");
  session.desktop.type("a b c d ");
  report(*session, "auto-nearby");
  report(*session, "manual");
  session->handleCycle("b", "c");
  EXPECT_THAT(log(*session), ElementsAre("auto-nearby a>b", "manual a>b @0", "cycle b>c",
                                         "auto-nearby a>b @3", "manual a>b @4", "cycle b>c @3"));
}

TEST(CorrectionEngine, LogsWhatHappensToTypedWords) {
  SimulatedSession session(words);
  session.desktop.type("helo teh ");
  session.desktop.type("thhhe ", {.gap = 0.3, .hold = 0.05});
  EXPECT_EQ(session.field.text(), "hello the the ");
  EXPECT_THAT(log(*session), ElementsAre("auto-other helo>hello @0", "auto-nearby teh>the @1",
                                         "auto-repeat thhhe>the @2"));
  EXPECT_EQ(session->measurements().rawInputLog, "helo teh thhhe ");
  EXPECT_EQ(counters(*session), (std::vector<std::int64_t>{15, 3, 3, 0, 0, 1, 1}));
  EXPECT_EQ(session->measurements().correctionLog[0].confidence, 0.85);
}

TEST(CorrectionEngine, LogsChipsAndCycleSteps) {
  SimulatedSession session(words);
  session.desktop.type("helo ");
  auto& cycler = session->typingViewModel().suggestionCycler();
  for (int step = 0; step < 3; ++step) {
    session.desktop.clock().advance(1);
    EXPECT_TRUE(cycler.cycle());
  }
  EXPECT_EQ(session->measurements().cycleKeyCount, 3);
  EXPECT_THAT(log(*session), ElementsAre("auto-other helo>hello @0", "cycle hello>help @0",
                                         "cycle help>held @0", "cycle held>helo @0"));
  EXPECT_EQ(session->measurements().correctionLog[3].timestamp, session.desktop.clock().now());
  session.desktop.type("helo");
  session->typingViewModel().applySuggestion("hero");
  EXPECT_EQ(log(*session).back(), "manual helo>hero @1");
  EXPECT_EQ(session->measurements().manualCorrectionCount, 1);
}

TEST(CorrectionEngine, ShowsTheFirstThreeSuggestions) {
  SimulatedSession session(words);
  int announced = 0;
  const auto subscription = session->suggestions().subscribe([&] { ++announced; });
  session.desktop.type("helo");
  EXPECT_THAT(*session->suggestions(), testing::SizeIs(3));
  EXPECT_EQ(announced, 4) << "every key refreshes, also without a change";
  session.desktop.type("\b\b\b\bteh");
  EXPECT_THAT(*session->suggestions(), ElementsAre("the"));
  session.desktop.type("\b\b\bhelo");
  session->reset();
  EXPECT_THAT(*session->suggestions(), IsEmpty());
}

TEST(CorrectionEngine, StartsAnewAtAReset) {
  SimulatedSession session(words);
  session.desktop.type("helo ");
  session->typingViewModel().suggestionCycler().cycle();
  session->refreshSuggestions();
  ASSERT_EQ(*session->cycleIndex(), 1);
  session->reset();
  EXPECT_EQ(counters(*session), std::vector<std::int64_t>(7, 0));
  EXPECT_THAT(log(*session), IsEmpty());
  EXPECT_EQ(session->measurements().rawInputLog, "");
  EXPECT_EQ(session->sessionStart(), session.desktop.clock().now());
  EXPECT_EQ(*session->cycleIndex(), 0);
  EXPECT_TRUE(session->keyInputTracker().events()->empty());
  EXPECT_FALSE(session->typingViewModel().suggestionCycler().record);
  EXPECT_EQ(session->typingViewModel().typingState()->typingScore, 0);
  EXPECT_EQ(*session->typingViewModel().feedbackType(), std::nullopt);
  EXPECT_TRUE(session->isTracking);
  session.desktop.type("a");
  EXPECT_EQ(session->measurements().keystrokeCount, 1) << "the tracker goes on running";
}

TEST(CorrectionEngine, CountsItsTimeFromTheLastResetWhoeverSetsTheDate) {
  SimulatedSession session;
  auto& clock = session.desktop.clock();
  session.desktop.advance(1000);
  session->reset();
  const auto start = clock.now();
  session.desktop.advance(30);
  clock.setNow(start - std::chrono::hours(1));
  EXPECT_NEAR(session->elapsed(), 30, 1e-6);
  EXPECT_EQ(session->sessionStart(), start);
  clock.sleep(60);
  EXPECT_NEAR(session->elapsed(), 90, 1e-6) << "the time a closed lid takes counts";
}

TEST(SessionSnapshot, TakesWhatTheEngineMeasured) {
  SimulatedSession session;
  session.desktop.type("helo ");
  const auto snapshot = makeSessionSnapshot(2, "prompt", "text", *session, 90);
  EXPECT_EQ(snapshot.sessionNumber, 2);
  EXPECT_EQ(snapshot.prompt, "prompt");
  EXPECT_EQ(snapshot.rawTyped, "helo ");
  EXPECT_EQ(snapshot.finalText, "text");
  EXPECT_EQ(snapshot.elapsed, 90);
  EXPECT_EQ(snapshot.sessionStart, session->sessionStart());
  EXPECT_EQ(snapshot.keystrokeCount, 5);
}

TEST(CorrectionEngine, TracksOnceAndKeepsCountingAfterAPause) {
  SimulatedSession session;
  session->startTracking();
  session.desktop.type("ab");
  session->stopTracking();
  session->stopTracking();
  session.desktop.type("cd");
  session->startTracking();
  session.desktop.type("e");
  EXPECT_EQ(session->measurements().rawInputLog, "abe");
  session->handleKeyEvents({});
  EXPECT_EQ(session->measurements().keystrokeCount, 3);
}

}  // namespace
}  // namespace mirvane
