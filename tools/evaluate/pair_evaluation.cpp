#include "evaluate/pair_evaluation.h"

#include <algorithm>
#include <map>
#include <string>

#include "correct/typing_state_analysis.h"
#include "evaluate/english_only.h"
#include "evaluate/latencies.h"
#include "evaluate/share.h"
#include "evaluate/tab_separated.h"
#include "evaluate/typing_rhythm.h"
#include "platform/simulated/key_layout.h"
#include "text/characters.h"
#include "text/letter_case.h"

namespace mirvane {
namespace {

using Json = nlohmann::ordered_json;
using Texts = std::vector<std::string>;

struct Tally {
  std::size_t pairs = 0, top1 = 0, top3 = 0, missing = 0;

  void count(const Texts& suggestions, const std::string& meant) {
    const auto found = std::find_if(suggestions.begin(), suggestions.end(), [&](const auto& text) {
      return text::equalIgnoringCase(text, meant);
    });
    const auto position = found - suggestions.begin();
    ++pairs;
    if (found == suggestions.end()) {
      ++missing;
      return;
    }
    if (position < 1) ++top1;
    if (position < 3) ++top3;
  }

  [[nodiscard]] Json json() const {
    return {{"pairs", pairs},
            {"top1", share(top1, pairs)},
            {"top3", share(top3, pairs)},
            {"missing", share(missing, pairs)}};
  }
};

/// The presses of a word, newest first, as the tracker would list them.
KeyEventList pressesOf(std::string_view word) {
  KeyEventList presses;
  simulated::KeyStroke previous;
  for (const auto character : text::characters(word)) {
    const auto key = simulated::keyStrokeOrText(character);
    std::optional<double> gap;
    if (!presses.empty()) gap = gapBefore(key, previous) * 1000;
    presses.push_front(
        {{}, key.keyCode, key.text.value_or(""), 0, key.modifierFlags, gap, std::nullopt});
    previous = key;
  }
  return presses;
}

}  // namespace

Json evaluatePairs(const std::filesystem::path& file, ShippedResources& shipped,
                   const Progress& progress) {
  const auto rows = readTabSeparated(file, 2);
  const EnglishOnly english(shipped);
  Tally all;
  std::map<std::string, Tally> kinds;
  Latencies latencies;
  for (const auto& row : rows) {
    TypingState state;
    state.isRepeating = hasRecentRepeats(pressesOf(row[0]), english.config);
    Texts suggestions;
    latencies.measure([&] { suggestions = english.engine.suggestionsFor(row[0], nullptr, state); });
    all.count(suggestions, row[1]);
    if (row.size() > 2) kinds[row[2]].count(suggestions, row[1]);
    progress(all.pairs, rows.size());
  }
  Json result = all.json();
  for (const auto& [kind, tally] : kinds) result["kinds"][kind] = tally.json();
  result["latencyMicroseconds"] = latencies.summary();
  return result;
}

}  // namespace mirvane
