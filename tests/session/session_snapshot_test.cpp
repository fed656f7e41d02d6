#include "session/session_snapshot.h"

#include <gtest/gtest.h>

#include "tests/session/simulated_session.h"

namespace mirvane {
namespace {

TEST(SessionSnapshot, FreezesAnEngine) {
  SimulatedSession session({{"hello"}, {{"helo", {"hello"}}}, {}});
  session.desktop.advance(1000);
  session->reset();
  session.desktop.type("helo ");
  session->handleCorrection({{}, "a", "b", "auto-repeat", 0, {}});
  session->handleCorrection({{}, "a", "b", "auto-nearby", 0, {}});
  for (int i = 0; i < 4; ++i) session->handleCorrection({{}, "a", "b", "manual", 0, {}});
  for (int i = 0; i < 5; ++i) session->handleCycle("a", "b");
  session.desktop.advance(90 - 5 * 0.18);
  const auto snapshot = makeSessionSnapshot(2, "prompt", session.field.text(), *session,
                                            session.desktop.clock().now());
  EXPECT_EQ(snapshot.sessionStart, session->sessionStart());
  EXPECT_NEAR(snapshot.elapsed, 90, 1e-6) << "from the last reset";
  session->reset();
  EXPECT_EQ(snapshot.sessionNumber, 2);
  EXPECT_EQ(snapshot.prompt, "prompt");
  EXPECT_EQ(snapshot.rawTyped, "helo ");
  EXPECT_EQ(snapshot.finalText, "hello ");
  EXPECT_EQ(snapshot.keystrokeCount, 5);
  EXPECT_EQ(snapshot.wordsCompleted, 1);
  EXPECT_EQ(snapshot.autoCorrectionCount, 3);
  EXPECT_EQ(snapshot.manualCorrectionCount, 4);
  EXPECT_EQ(snapshot.cycleKeyCount, 5);
  EXPECT_EQ(snapshot.nearbyKeyCount, 1);
  EXPECT_EQ(snapshot.repeatKeyCount, 1);
  EXPECT_EQ(snapshot.correctionLog.size(), 12U);
}

}  // namespace
}  // namespace mirvane
