#include "typist/typist.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/key_codes.h"
#include "platform/simulated/key_layout.h"
#include "text/characters.h"
#include "text/scalars.h"
#include "typist/random_source.h"

namespace mirvane {
namespace {

using Kind = RecordedEvent::Kind;

constexpr double repeatGap = 70;  // ms between the presses of a trembling finger
constexpr double repeatGapSpread = 0.25;
constexpr double hesitationGap = 1600;
constexpr double thinkingGap = 900;      // before a chip or the cycle key is used
constexpr std::size_t leastLetters = 3;  // shorter words are typed with care

/// The keys to the left and right on a US QWERTY keyboard: where a finger most often slips to.
char neighborOf(char letter, RandomSource& random) {
  constexpr std::string_view rows[] = {"qwertyuiop", "asdfghjkl", "zxcvbnm"};
  for (const auto row : rows) {
    const auto column = row.find(letter);
    if (column == std::string_view::npos) continue;
    if (column == 0) return row[1];
    if (column + 1 == row.size()) return row[column - 1];
    return random.happens(0.5) ? row[column - 1] : row[column + 1];
  }
  return letter;
}

/// A character to be struck, and how often too often.
struct Strike {
  std::string character;
  int extraPresses = 0;
};

/// Makes the mistakes of one word.
class WordDistorter {
 public:
  WordDistorter(const TypistProfile& profile, RandomSource& random)
      : profile_(profile), random_(random) {}

  std::vector<Strike> distort(const std::vector<std::string>& word) {
    std::vector<Strike> strikes;
    for (std::size_t i = 0; i < word.size(); ++i) {
      const bool isFirst = i == 0;
      if (!isFirst && random_.happens(profile_.missRate)) continue;
      if (!isFirst && i + 1 < word.size() && random_.happens(profile_.swapRate)) {
        strikes.push_back({word[i + 1]});
        strikes.push_back({word[i]});
        ++i;
        continue;
      }
      strikes.push_back(strike(word[i]));
    }
    return strikes;
  }

 private:
  Strike strike(const std::string& meant) {
    Strike strike{meant};
    const bool isLowerLetter = meant.size() == 1 && meant[0] >= 'a' && meant[0] <= 'z';
    if (isLowerLetter && random_.happens(profile_.nearbyRate)) {
      strike.character[0] = neighborOf(meant[0], random_);
    }
    if (random_.happens(profile_.repeatRate)) strike.extraPresses = random_.happens(0.6) ? 2 : 1;
    return strike;
  }

  const TypistProfile& profile_;
  RandomSource& random_;
};

/// Writes the events of a recording and keeps the time.
class SessionWriter {
 public:
  SessionWriter(Recording& recording, const TypistProfile& profile, RandomSource& random)
      : events_(recording.events), profile_(profile), random_(random) {}

  void strike(const Strike& strike) {
    wait(random_.logNormal(profile_.medianGap, profile_.gapSpread));
    if (random_.happens(profile_.hesitationRate)) wait(hesitationGap);
    press(strike.character);
    for (int i = 0; i < strike.extraPresses; ++i) {
      wait(random_.logNormal(repeatGap, repeatGapSpread));
      press(strike.character);
    }
  }

  void pickFirstChip() {
    wait(random_.logNormal(thinkingGap, profile_.gapSpread));
    events_.push_back({.kind = Kind::chip, .t = seconds(now_)});
  }

  void pressCycleKey() {
    wait(random_.logNormal(thinkingGap, profile_.gapSpread));
    changeFlags(modifier::option);
    wait(random_.logNormal(profile_.medianHold, profile_.holdSpread));
    changeFlags(0);
  }

  /// The latest key press, seconds.
  [[nodiscard]] double lastPress() const { return lastPress_; }

  void finish() {
    wait(thinkingGap);
    events_.push_back({.kind = Kind::done, .t = seconds(now_)});
    std::stable_sort(events_.begin(), events_.end(),
                     [](const auto& a, const auto& b) { return a.t < b.t; });
  }

 private:
  static double seconds(double ms) { return ms / 1000; }
  void wait(double ms) { now_ += std::max(1.0, std::round(ms)); }

  void press(const std::string& character) {
    const auto key = simulated::keyStrokeOrText(character);
    liftBeforePressingAgain(key.keyCode);
    lastPress_ = seconds(now_);
    events_.push_back({.kind = Kind::down,
                       .t = seconds(now_),
                       .keyCode = key.keyCode,
                       .text = key.text,
                       .flags = key.modifierFlags});
    const double hold = std::round(random_.logNormal(profile_.medianHold, profile_.holdSpread));
    lastUp_ = events_.size();
    events_.push_back({.kind = Kind::up, .t = seconds(now_ + hold), .keyCode = key.keyCode});
  }

  /// A key that is struck twice in a row is let go in between.
  void liftBeforePressingAgain(std::uint16_t keyCode) {
    constexpr double leastPause = 10;
    if (!lastUp_ || events_[*lastUp_].keyCode != keyCode) return;
    auto& up = events_[*lastUp_];
    up.t = std::min(up.t, seconds(now_ - leastPause));
  }

  void changeFlags(std::uint64_t flags) {
    events_.push_back(
        {.kind = Kind::flags, .t = seconds(now_), .keyCode = keycode::rightOption, .flags = flags});
  }

  std::vector<RecordedEvent>& events_;
  const TypistProfile& profile_;
  RandomSource& random_;
  double now_ = 0;                     // ms
  double lastPress_ = 0;               // s
  std::optional<std::size_t> lastUp_;  // position of the latest key-up
};

/// Types a text word by word.
class Typist {
 public:
  Typist(TypedText& result, const TypistProfile& profile, RandomSource& random)
      : session_(result.recording.session),
        words_(result.words),
        profile_(profile),
        random_(random),
        distorter_(profile, random),
        writer_(result.recording, profile, random) {}

  void type(std::string_view text) {
    for (const auto character : text::characters(text)) {
      if (text::isLetter(text::firstScalar(character))) {
        word_.emplace_back(character);
        continue;
      }
      const bool wasWrong = typeWord();
      writer_.strike({std::string(character)});
      if (wasWrong && session_ == 2 && random_.happens(profile_.cycleRate)) cycle();
    }
    typeWord();
    writer_.finish();
  }

 private:
  /// Whether the word came out wrong.
  bool typeWord() {
    const auto meant = std::exchange(word_, {});
    std::vector<Strike> strikes;
    if (meant.size() < leastLetters) {
      for (const auto& character : meant) strikes.push_back({character});
    } else {
      strikes = distorter_.distort(meant);
    }
    strikeWord(strikes, meant);
    const bool isWrong = !isAsMeant(strikes, meant);
    if (isWrong && session_ == 1 && random_.happens(profile_.chipRate)) writer_.pickFirstChip();
    return isWrong;
  }

  void strikeWord(const std::vector<Strike>& strikes, const std::vector<std::string>& meant) {
    if (meant.empty()) return;
    IntendedWord word{};
    for (const auto& character : meant) word.meant += character;
    for (const auto& strike : strikes) {
      writer_.strike(strike);
      if (word.typed.empty()) word.t = writer_.lastPress();
      for (int i = 0; i <= strike.extraPresses; ++i) word.typed += strike.character;
    }
    words_.push_back(std::move(word));
  }

  static bool isAsMeant(const std::vector<Strike>& strikes, const std::vector<std::string>& meant) {
    return std::equal(strikes.begin(), strikes.end(), meant.begin(), meant.end(),
                      [](const Strike& strike, const std::string& character) {
                        return strike.extraPresses == 0 && strike.character == character;
                      });
  }

  void cycle() {
    const auto presses = 1 + random_.below(3);
    for (std::uint64_t i = 0; i < presses; ++i) writer_.pressCycleKey();
  }

  std::int64_t session_;
  std::vector<IntendedWord>& words_;
  const TypistProfile& profile_;
  RandomSource& random_;
  WordDistorter distorter_;
  SessionWriter writer_;
  std::vector<std::string> word_;
};

}  // namespace

const TypistProfile& steadyProfile() {
  static constexpr TypistProfile profile{.medianGap = 214,
                                         .gapSpread = 0.35,
                                         .medianHold = 95,
                                         .holdSpread = 0.2,
                                         .repeatRate = 0.005,
                                         .nearbyRate = 0.012,
                                         .missRate = 0.006,
                                         .swapRate = 0.006,
                                         .hesitationRate = 0.004,
                                         .chipRate = 0.2,
                                         .cycleRate = 0.3};
  return profile;
}

const TypistProfile& tremorProfile() {
  static constexpr TypistProfile profile{.medianGap = 330,
                                         .gapSpread = 0.6,
                                         .medianHold = 150,
                                         .holdSpread = 0.35,
                                         .repeatRate = 0.045,
                                         .nearbyRate = 0.04,
                                         .missRate = 0.015,
                                         .swapRate = 0.012,
                                         .hesitationRate = 0.02,
                                         .chipRate = 0.2,
                                         .cycleRate = 0.4};
  return profile;
}

TypedText simulateTyping(std::string_view text, std::int64_t session, const TypistProfile& profile,
                         std::uint64_t seed) {
  TypedText result;
  result.recording.session = session;
  result.recording.prompt = text;
  RandomSource random(seed);
  Typist(result, profile, random).type(text);
  return result;
}

Recording typeText(std::string_view text, std::int64_t session, const TypistProfile& profile,
                   std::uint64_t seed) {
  return simulateTyping(text, session, profile, seed).recording;
}

}  // namespace mirvane
