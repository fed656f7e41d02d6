#include "evaluate/sentence_evaluation.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "evaluate/latencies.h"
#include "evaluate/share.h"
#include "evaluate/tab_separated.h"
#include "evaluate/typing_rhythm.h"
#include "support/simulated_session.h"
#include "text/characters.h"
#include "text/letter_case.h"
#include "text/word_boundaries.h"

namespace mirvane {
namespace {

using Texts = std::vector<std::string>;

Texts tokens(std::string_view sentence) {
  Texts result;
  for (std::size_t start = 0; start < sentence.size();) {
    const auto end = std::min(sentence.find(' ', start), sentence.size());
    if (end > start) result.emplace_back(sentence.substr(start, end - start));
    start = end + 1;
  }
  return result;
}

std::string at(const Texts& texts, std::size_t index) {
  return index < texts.size() ? texts[index] : std::string();
}

bool isSame(std::string_view a, std::string_view b) {
  return text::equalIgnoringCase(a, b);
}

/// A token without the punctuation around its word.
std::string_view bareWord(std::string_view token) {
  constexpr std::string_view punctuation = ".,!?;:\"'()[]{}<>";
  const auto first = token.find_first_not_of(punctuation);
  if (first == std::string_view::npos) return token;
  return token.substr(first, token.find_last_not_of(punctuation) - first + 1);
}

/// A desktop with an empty field and a fresh engine, for one sentence.
class Sentence {
 public:
  Sentence(ShippedResources& shipped, Latencies& latencies)
      : session_(shipped.typingConfig(), shipped.language()), latencies_(latencies) {}

  void type(std::string_view sentence) {
    for (const auto character : text::characters(sentence)) {
      if (character == " ") {
        endToken();
      } else {
        isTokenOpen_ = true;
      }
      strike(character);
    }
    endToken();
  }

  [[nodiscard]] std::string finalText() const { return session_.field().text(); }

  /// The chips that stood there when each token's word ended.
  [[nodiscard]] const std::vector<Texts>& offered() const { return offered_; }

 private:
  void strike(std::string_view character) {
    const auto key = simulated::keyStrokeOrText(character);
    auto& desktop = session_.desktop();
    desktop.advance(gapBefore(key, previousKey_));
    desktop.keyboard().press(key);
    latencies_.measure([&] { desktop.settle(); });
    // The key that ends the word leaves no suggestions: those of its last letter count.
    if (!text::isBoundaryKeyText(character)) latest_ = *session_.engine().suggestions();
    desktop.keyboard().release(key);
    previousKey_ = key;
  }

  void endToken() {
    if (isTokenOpen_) offered_.push_back(latest_);
    isTokenOpen_ = false;
    latest_.clear();
  }

  SimulatedSession session_;
  Latencies& latencies_;
  simulated::KeyStroke previousKey_;
  bool isTokenOpen_ = false;
  Texts latest_;
  std::vector<Texts> offered_;
};

struct Tally {
  std::size_t words = 0, wrong = 0, fixed = 0, right = 0, broken = 0;
  std::size_t applied = 0, appliedWell = 0, offered = 0;

  void count(std::string_view typed, std::string_view intended, std::string_view final,
             const Texts& chips) {
    ++words;
    const bool isFinalRight = isSame(final, intended);
    if (isSame(typed, intended)) {
      ++right;
      if (!isFinalRight) ++broken;
    } else {
      ++wrong;
      if (isFinalRight) ++fixed;
      const auto meant = bareWord(intended);
      if (std::any_of(chips.begin(), chips.end(),
                      [&](const std::string& chip) { return isSame(chip, meant); })) {
        ++offered;
      }
    }
    if (!isSame(final, typed)) {
      ++applied;
      if (isFinalRight) ++appliedWell;
    }
  }
};

void countSentence(Tally& tally, const Texts& typed, const Texts& intended,
                   const Sentence& typing) {
  const auto final = tokens(typing.finalText());
  const auto count = std::max(typed.size(), intended.size());
  for (std::size_t i = 0; i < count; ++i) {
    const auto chips = i < typing.offered().size() ? typing.offered()[i] : Texts();
    tally.count(at(typed, i), at(intended, i), at(final, i), chips);
  }
}

}  // namespace

nlohmann::ordered_json evaluateSentences(const std::filesystem::path& file,
                                         ShippedResources& shipped, const Progress& progress) {
  const auto rows = readTabSeparated(file, 2);
  Tally tally;
  Latencies latencies;
  std::size_t done = 0;
  for (const auto& row : rows) {
    Sentence sentence(shipped, latencies);
    sentence.type(row[0]);
    countSentence(tally, tokens(row[0]), tokens(row[1]), sentence);
    progress(++done, rows.size());
  }
  return {{"words", tally.words},
          {"wrong", tally.wrong},
          {"fixed", share(tally.fixed, tally.wrong)},
          {"right", tally.right},
          {"broken", share(tally.broken, tally.right)},
          {"applied", tally.applied},
          {"precision", share(tally.appliedWell, tally.applied)},
          {"offeredTop3", share(tally.offered, tally.wrong)},
          {"keyLatencyMicroseconds", latencies.summary()}};
}

}  // namespace mirvane
