#include "analyse/session_analysis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "analyse/key_collector.h"
#include "analyse/typing_course.h"
#include "model/correction_event.h"
#include "platform/key_codes.h"
#include "platform/simulated/key_layout.h"

namespace mirvane {
namespace {

using testing::ElementsAre;
using Kind = RecordedEvent::Kind;

/// Types a script: "<" is Backspace, "_" a second of rest, "{auto-nearby:teh>the}" what the engine
/// did after the key before. Keys come 0.2 s apart and are held for 0.1 s.
class Script {
 public:
  explicit Script(std::string prompt) : session_{.prompt = std::move(prompt)} {}

  TypedSession type(std::string_view script) {
    KeyCollector collector(session_);
    while (!script.empty()) {
      const auto end = script.front() == '{' ? script.find('}') + 1 : 1;
      play(script.substr(0, end), collector);
      script.remove_prefix(end);
    }
    session_.finalText = followTyping(session_).text;
    return std::move(session_);
  }

 private:
  void play(std::string_view piece, KeyCollector& collector) {
    if (piece == "_") {
      t_ += 1;
    } else if (piece.size() > 1) {
      const auto colon = piece.find(':'), arrow = piece.find('>');
      collector.add(LoggedCorrection{
          .kind = std::string(piece.substr(1, colon - 1)),
          .original = std::string(piece.substr(colon + 1, arrow - colon - 1)),
          .corrected = std::string(piece.substr(arrow + 1, piece.size() - arrow - 2)),
          .t = t_});
    } else {
      t_ += 0.2;
      const auto key = simulated::keyStrokeOrText(piece == "<" ? "\b" : std::string(piece));
      collector.add(
          RecordedEvent{.kind = Kind::down, .t = t_, .keyCode = key.keyCode, .text = key.text});
      collector.add(RecordedEvent{.kind = Kind::up, .t = t_ + 0.1, .keyCode = key.keyCode});
    }
  }

  TypedSession session_;
  double t_ = 0;
};

SessionAnalysis analysed(const TypedSession& session) {
  TypingConfig config;
  config.nearbyKeyProbabilities = {{"j", {{"h", 0.3}}}};
  const NearbyKeys nearbyKeys(config);
  return analyseSession(session, config, nearbyKeys);
}

SessionAnalysis analysed(const std::string& prompt, std::string_view script) {
  return analysed(Script(prompt).type(script));
}

/// The classes and rates of Soukoreff & MacKenzie (2003), counted by hand for
/// "the quick brown fox" typed as "the quixck" with the slip left in, and with it mended.
TEST(SessionAnalysis, GivesTheErrorRatesOfTheUnifiedMetric) {
  const auto left = analysed("the quick brown", "the quixck brwn");
  EXPECT_EQ(left.finalErrors.distance, 2U);  // INF
  EXPECT_EQ(left.finalErrors.correct, 13U);  // C = max(15, 15) - 2
  EXPECT_DOUBLE_EQ(*left.finalErrors.msd, 2.0 / 15);
  EXPECT_DOUBLE_EQ(*left.finalErrors.total, 2.0 / 15);
  EXPECT_DOUBLE_EQ(*left.finalErrors.corrected, 0);

  const auto mended = analysed("the quick", "the quix<ck");
  EXPECT_EQ(mended.erasedCharacters, 1U);  // IF
  EXPECT_EQ(mended.fixes, 1);              // F
  EXPECT_EQ(mended.finalErrors.distance, 0U);
  EXPECT_DOUBLE_EQ(*mended.finalErrors.corrected, 1.0 / 10);
  EXPECT_DOUBLE_EQ(*mended.finalErrors.uncorrected, 0);
  EXPECT_DOUBLE_EQ(*mended.finalErrors.total, 1.0 / 10);
  EXPECT_DOUBLE_EQ(*mended.kspc, 11.0 / 9);
}

TEST(SessionAnalysis, GivesTheMsdErrorRateOfThePapers) {
  // MacKenzie & Soukoreff (2002): MSD 3; by the formula of 2001, 3 of 8 characters.
  EXPECT_DOUBLE_EQ(*analysed("quickly", "qucehkly").finalErrors.msd, 3.0 / 8);
  // Soukoreff & MacKenzie (2001): MSD 2 of 4 characters.
  EXPECT_DOUBLE_EQ(*analysed("abcd", "acbd").finalErrors.msd, 2.0 / 4);
}

/// 43 characters after the first, in 42 intervals and the last: 43 keys at 0.2 s are 8.6 s.
TEST(SessionAnalysis, MeasuresSpeedFromTheFirstKeyToTheLast) {
  const std::string text = "the quick brown fox jumps over the lazy dogs";
  const auto analysis = analysed(text, "_" + text);
  EXPECT_NEAR(*analysis.wpm, 43 / 8.6 * 60 / 5, 1e-9);
  EXPECT_NEAR(*analysis.adjustedWpm, *analysis.wpm, 1e-9);
  const auto faulty = analysed("abcde", "abxde");
  EXPECT_NEAR(*faulty.adjustedWpm, *faulty.wpm * 0.8, 1e-9);
  EXPECT_FALSE(analysed("abc", "a").wpm);
  EXPECT_FALSE(analysed("abc", "").wpm);
}

TEST(SessionAnalysis, CountsAnAutomaticCorrectionAsAFixOfWhatItChanged) {
  const auto analysis = analysed("the fox", "thx {auto-nearby:thx>the}fox");
  EXPECT_EQ(analysis.typed, "thx fox");
  EXPECT_TRUE(analysis.isFinalReproduced);
  EXPECT_EQ(analysis.typedErrors.distance, 1U);
  EXPECT_DOUBLE_EQ(*analysis.typedErrors.corrected, 0);
  EXPECT_EQ(analysis.finalErrors.distance, 0U);
  EXPECT_EQ(analysis.replacedCharacters, 1U);
  EXPECT_EQ(analysis.fixes, 0);
  EXPECT_DOUBLE_EQ(*analysis.finalErrors.corrected, 1.0 / 8);
  EXPECT_EQ(analysis.typedWordsRight, 1U);
  EXPECT_EQ(analysis.finalWordsRight, 2U);
  EXPECT_EQ(analysis.wordsFixed, 1);
  EXPECT_DOUBLE_EQ(*analysis.precision, 1);
}

TEST(SessionAnalysis, CountsBrokenWordsByWhatBecomesOfThemInTheEnd) {
  const auto broken = analysed("call Stella now", "call Stella {auto-other:Stella>Stellar}now");
  EXPECT_EQ(broken.wordsBroken, 1);
  EXPECT_EQ(broken.automatic.wrong, 1);
  EXPECT_DOUBLE_EQ(*broken.precision, 0);
  const auto cycledBack = analysed("call Stella now",
                                   "call Stella {auto-other:Stella>Stellar}"
                                   "{cycle:Stellar>Stella}now");
  EXPECT_EQ(cycledBack.wordsBroken, 0);
  EXPECT_EQ(cycledBack.replacedCharacters, 0U);
  EXPECT_EQ(cycledBack.cycleSteps.right, 1);
  EXPECT_EQ(cycledBack.fixes, 1);
}

/// The wrong word and the space are erased, one character more than was typed, and the word is
/// typed again: the fingers' text has nothing of the first attempt.
TEST(SessionAnalysis, FollowsAWordThatIsErasedAfterAWrongCorrection) {
  const auto session =
      Script("a brown fox").type("a brwn {auto-other:brwn>brawny}<<<<<<<brown fox");
  const auto analysis = analysed(session);
  EXPECT_EQ(session.finalText, "a brown fox");
  EXPECT_EQ(analysis.typed, "a brown fox");
  EXPECT_EQ(analysis.erasedCharacters, 5U);
  EXPECT_EQ(analysis.replacedCharacters, 0U);
  ASSERT_TRUE(analysis.corrections[0].meant);
  EXPECT_EQ(analysis.corrections[0].meant->asWritten, "brown");
  EXPECT_EQ(analysis.corrections[0].isRight, false);
  // 7 Backspaces, "brown f", as long as "brawny " was, and the first letter beyond: 0.2 s each.
  EXPECT_NEAR(*analysis.corrections[0].continued, 15 * 200, 1e-6);
  EXPECT_NEAR(*analysis.wrongCorrectionCost, 15 * 200 - 200, 1e-6);
}

TEST(SessionAnalysis, FindsTheWordThatACorrectionWasMeantFor) {
  struct Row {
    const char* prompt;
    const char* script;
    const char* word;
    bool isRight;
  };
  const Row rows[] = {
      {"lazy dog. She sells", "lazy dog. Se {auto-other:Se>She}sells", "She", true},
      {"lazy dog. She sells", "lazy dog. She slls{manual:slls>sells}", "sells", true},
      {"the lazy dog", "the dgo {auto-nearby:dgo>dog}", "dog", true},
      {"thequick fox", "the quikc {auto-nearby:quikc>quick}fox", "thequick", false},
      {"the quick fox", "thequik {auto-other:thequik>thequick}fox", "the quick", true},
      {"I'm here", "Im {auto-other:Im>I'm}here", "I'm", true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.script);
    const auto outcome = analysed(row.prompt, row.script).corrections.at(0);
    ASSERT_TRUE(outcome.meant);
    EXPECT_EQ(outcome.meant->asWritten, row.word);
    EXPECT_EQ(outcome.isRight, row.isRight);
  }
  const auto tooMany = analysed("a b", "a b uhm {auto-nearby:uhm>ham}");
  EXPECT_FALSE(tooMany.corrections.at(0).meant);
  EXPECT_EQ(tooMany.automatic.unknown, 1);
  EXPECT_FALSE(tooMany.precision);
}

std::vector<std::string> slipsOf(const std::string& prompt, std::string_view script) {
  const auto session = Script(prompt).type(script);
  std::vector<std::string> slips;
  for (const auto& pair : analysed(session).keyPairs) {
    if (pair.slip == Slip::none && !pair.isErased) continue;
    slips.push_back(pair.meant + ">" + (pair.key ? session.keys[*pair.key].text : "") + " " +
                    std::string(nameOf(pair.slip)) + (pair.isErased ? " erased" : ""));
  }
  return slips;
}

TEST(SessionAnalysis, NamesTheSlipOfEveryKey) {
  EXPECT_THAT(slipsOf("The hen", "the jen"), ElementsAre("T>t case", "h>j nearby"));
  EXPECT_THAT(slipsOf("a hen", "a ken"), ElementsAre("h>k substitution"));
  EXPECT_THAT(slipsOf("the hen", "teh hen"), ElementsAre("h>e transposition", "e>h transposition"));
  EXPECT_THAT(slipsOf("the hen", "thhe hxen"), ElementsAre(">h repeat", ">x insertion"));
  EXPECT_THAT(slipsOf("brown fox", "brwn fox"), ElementsAre("o> omission"));
  EXPECT_THAT(slipsOf("brown fox", "brown"), ElementsAre());  // not finished
  EXPECT_THAT(slipsOf("a quick fox", "a qiu<<uick fox"),
              ElementsAre(">i insertion erased", "u>u none erased"));
  EXPECT_THAT(slipsOf("a quick fox", "a quickk<"), ElementsAre(" >k substitution erased"));
  EXPECT_THAT(slipsOf("a hen", "a j<h<hen"), ElementsAre("h>j nearby erased", "h>h none erased"));
}

TEST(SessionAnalysis, KeepsTheRhythmOfTheKeys) {
  const auto session = Script("ab cd").type("ab_ cd");
  const auto rhythm = analysed(session).rhythm;
  EXPECT_NEAR(*rhythm.intervals.median, 200, 1e-6);
  EXPECT_NEAR(*rhythm.intervals.mean, 450, 1e-6);
  EXPECT_NEAR(*rhythm.intervals.deviation, 500, 1e-6);  // 200, 1200, 200, 200
  EXPECT_NEAR(*rhythm.holds.median, 100, 1e-6);
  EXPECT_EQ(rhythm.hesitations, 1);
  EXPECT_EQ(rhythm.repeats, 0);
}

RecordedEvent down(double t, std::uint16_t code, const std::string& text, std::uint64_t flags = 0) {
  return {.kind = Kind::down, .t = t, .keyCode = code, .text = text, .flags = flags};
}
RecordedEvent up(double t, std::uint16_t code) {
  return {.kind = Kind::up, .t = t, .keyCode = code};
}

TypedSession collected(const std::vector<RecordedEvent>& events) {
  TypedSession session{.prompt = "aab"};
  KeyCollector collector(session);
  for (const auto& event : events) collector.add(event);
  session.finalText = followTyping(session).text;
  return session;
}

TEST(SessionAnalysis, TellsAHeldKeyFromAKeyStruckAgain) {
  const auto held = collected({down(1, 0, "a"), down(1.5, 0, "a"), down(1.55, 0, "a"), up(1.6, 0),
                               down(2, 11, "b"), up(2.1, 11)});
  const auto heldRhythm = analysed(held).rhythm;
  EXPECT_EQ(heldRhythm.heldRepeats, 2);
  EXPECT_EQ(heldRhythm.repeats, 0);
  EXPECT_NEAR(*held.keys[0].hold, 600, 1e-6);
  EXPECT_FALSE(held.keys[1].hold);
  EXPECT_NEAR(*held.keys[3].gap, 1000, 1e-6);

  const auto struck = collected({down(1, 0, "a"), up(1.03, 0), down(1.1, 0, "a"), up(1.15, 0),
                                 down(1.2, 0, "a"), up(1.3, 0), down(2, 11, "b")});
  const auto struckRhythm = analysed(struck).rhythm;
  EXPECT_EQ(struckRhythm.heldRepeats, 0);
  EXPECT_EQ(struckRhythm.repeats, 1);
}

TEST(SessionAnalysis, CountsFromTheLastResetToDone) {
  const auto session = collected({down(1, 11, "b"),
                                  up(1.1, 11),
                                  {.kind = Kind::reset, .t = 2},
                                  down(3, 0, "a"),
                                  up(3.1, 0),
                                  {.kind = Kind::done, .t = 4},
                                  down(5, 11, "b")});
  EXPECT_EQ(session.finalText, "a");
  EXPECT_EQ(session.raw, "a");
  EXPECT_EQ(session.resets, 1);
  EXPECT_FALSE(session.keys.front().gap);
}

TEST(SessionAnalysis, LeavesOutKeysThatTypeNothing) {
  const auto session =
      collected({down(1, 0, "a"), down(2, keycode::escape, "\x1b"),
                 down(3, 8, "c", modifier::control), down(4, keycode::tab, "\t"),
                 down(5, keycode::returnKey, "\r"), down(6, keycode::forwardDelete, "\x7f"),
                 down(7, 0, "ab cd"), down(8, keycode::deleteKey, "\x7f", modifier::control)});
  EXPECT_EQ(session.finalText, "a\nab ");
  EXPECT_EQ(session.keys.size(), 8U);  // a, Return, five of an input method, Backspace
}

}  // namespace
}  // namespace mirvane
