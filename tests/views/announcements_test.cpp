#include "views/announcements.h"

#include <gtest/gtest.h>

#include "tests/views/study_world.h"

namespace mirvane {
namespace {

class ManualTimer : public SettleTimer {
 public:
  void restart() override { isRunning_ = true; }

  void elapse() {
    if (!std::exchange(isRunning_, false)) return;
    onElapsed();
  }

 private:
  bool isRunning_ = false;
};

class Announcing : public ::testing::Test {
 protected:
  /// What has been said since the last question.
  [[nodiscard]] QStringList heard() {
    moment.elapse();
    return std::exchange(said, {});
  }

  void pause() { pauseOfKeys.elapse(); }

  StudyWorld world;
  CorrectionEngine engine{world.services()};
  ManualTimer moment;
  ManualTimer pauseOfKeys;
  QStringList said;
  Announcements announcements{moment, [this](const QString& text) { said << text; }};
  EngineAnnouncements engineAnnouncements{engine, announcements, pauseOfKeys};
};

TEST_F(Announcing, SaysSuggestionsOnceTheKeysHavePaused) {
  engine.startTracking();
  world.desktop.type("helo");
  EXPECT_EQ(heard(), QStringList{});
  pause();
  EXPECT_EQ(heard(), QStringList{"Suggestions: hello, help, helm"});
  engine.refreshSuggestions();
  pause();
  EXPECT_EQ(heard(), QStringList{});
}

TEST_F(Announcing, SaysNoSuggestionsWhereThereAreNone) {
  engine.startTracking();
  world.desktop.type("x ");
  pause();
  EXPECT_EQ(heard(), QStringList{});
}

TEST_F(Announcing, SaysEachCorrectionAndEachCycleStepOnce) {
  engine.startTracking();
  world.desktop.type("helo ");
  EXPECT_EQ(heard(), QStringList{"helo, corrected to hello"});
  for (const char* next : {"help", "helm", "helo"}) {
    engine.typingViewModel().suggestionCycler().cycle();
    engine.refreshSuggestions();
    EXPECT_EQ(heard(), QStringList{QStringLiteral("changed to ") + QLatin1String(next)});
  }
  world.desktop.type("helo");
  engine.typingViewModel().applySuggestion("help");
  engine.refreshSuggestions();
  EXPECT_EQ(heard(), QStringList{"helo, replaced by help"});
}

TEST_F(Announcing, GoesOnAfterAReset) {
  engine.startTracking();
  world.desktop.type("helo ");
  EXPECT_EQ(heard().size(), 1);
  engine.reset();
  world.element.setText("");
  EXPECT_EQ(heard(), QStringList{});
  world.desktop.type("helo ");
  EXPECT_EQ(heard(), QStringList{"helo, corrected to hello"});
}

TEST_F(Announcing, SaysTogetherWhatHappensAtTheSameMoment) {
  announcements.say(QStringLiteral("helo, corrected to hello"));
  announcements.say(QStringLiteral("Press Space, done"));
  announcements.say(QStringLiteral("A sentence."));
  announcements.say(QStringLiteral("Another."));
  EXPECT_EQ(heard(),
            QStringList{"helo, corrected to hello. Press Space, done. A sentence. Another."});
}

}  // namespace
}  // namespace mirvane
