#include "analyse/key_pairs.h"

#include <algorithm>
#include <iterator>

#include "analyse/alignment.h"
#include "text/characters.h"
#include "text/letter_case.h"

namespace mirvane {
namespace {

using Keys = TypedField::KeyNumbers;

/// Pairs the keys of a session with its prompt: first those that stayed, then run by run what was
/// erased.
class Pairing {
 public:
  Pairing(const TypedSession& session, const TypingCourse& course, const NearbyKeys& nearbyKeys)
      : session_(session),
        course_(course),
        nearbyKeys_(nearbyKeys),
        prompt_(text::characters(session.prompt)),
        promptSymbols_(symbolsOf(prompt_)),
        promptAfter_(session.keys.size()) {}

  std::vector<KeyPair> pair() {
    pairStayed();
    pairErased();
    std::stable_sort(ordered_.begin(), ordered_.end(),
                     [](const auto& a, const auto& b) { return a.order < b.order; });
    std::vector<KeyPair> pairs;
    pairs.reserve(ordered_.size());
    for (auto& entry : ordered_) pairs.push_back(std::move(entry.pair));
    return pairs;
  }

 private:
  struct Ordered {
    std::size_t order;  // number of the pair's key; for an omission of the next one
    KeyPair pair;
  };

  void pairStayed() {
    auto alignment = align(promptSymbols_, symbolsOfKeys(course_.typed));
    // The prompt was not finished: its end is not left out.
    while (!alignment.empty() && !alignment.back().typed) alignment.pop_back();
    add(alignment, course_.typed, 0, false);
  }

  void pairErased() {
    Keys run;
    for (std::size_t number = 0; number <= session_.keys.size(); ++number) {
      const bool goesOn = number < session_.keys.size() && course_.isErased[number];
      if (goesOn) {
        run.push_back(number);
      } else if (!run.empty()) {
        pairErasedRun(run);
        run.clear();
      }
    }
  }

  void pairErasedRun(const Keys& run) {
    const auto before = course_.typedAfter[run.front()];
    const std::size_t start = before ? promptAfter_[*before] : 0;
    // Twice its length is more of the prompt than a run can reach.
    const auto end = std::min(promptSymbols_.size(), start + 2 * run.size());
    const Symbols rest(promptSymbols_.begin() + static_cast<std::ptrdiff_t>(start),
                       promptSymbols_.begin() + static_cast<std::ptrdiff_t>(end));
    add(alignWithBeginning(rest, symbolsOfKeys(run)), run, start, true);
  }

  [[nodiscard]] Symbols symbolsOfKeys(const Keys& keys) const {
    std::vector<std::string_view> characters;
    for (const auto number : keys) characters.emplace_back(session_.keys[number].text);
    return symbolsOf(characters);
  }

  /// `alignment` is of the prompt from `start` on and of `keys`.
  void add(const std::vector<AlignedPair>& alignment, const Keys& keys, std::size_t start,
           bool isErased) {
    std::size_t after = start;
    std::size_t next = 0;  // position in keys
    const auto first = ordered_.size();
    for (const auto& [meant, typed] : alignment) {
      KeyPair pair{.isErased = isErased};
      if (meant) {
        pair.meant = prompt_[start + *meant];
        after = start + *meant + 1;
      }
      if (typed) {
        pair.key = keys[*typed];
        promptAfter_[*pair.key] = after;
        next = *typed;
      } else if (!keys.empty()) {
        next = std::min(next + (ordered_.size() > first ? 1 : 0), keys.size() - 1);
      }
      pair.slip = slipOf(pair, typed && *typed > 0 ? &session_.keys[keys[*typed - 1]] : nullptr);
      ordered_.push_back({keys[next], std::move(pair)});
    }
    markTranspositions(first);
  }

  [[nodiscard]] Slip slipOf(const KeyPair& pair, const TypedKey* before) const {
    if (!pair.key) return Slip::omission;
    const auto& typed = session_.keys[*pair.key].text;
    if (pair.meant.empty()) {
      const bool isRepeat = before != nullptr && text::equalIgnoringCase(before->text, typed);
      return isRepeat ? Slip::repeat : Slip::insertion;
    }
    if (text::sameCharacter(pair.meant, typed)) return Slip::none;
    if (text::equalIgnoringCase(pair.meant, typed)) return Slip::letterCase;
    const bool isNearby = nearbyKeys_.nearbyKeyProbability(typed, pair.meant) > 0;
    return isNearby ? Slip::nearby : Slip::substitution;
  }

  void markTranspositions(std::size_t first) {
    for (auto i = first; i + 1 < ordered_.size(); ++i) {
      auto& left = ordered_[i].pair;
      auto& right = ordered_[i + 1].pair;
      if (!isSubstitution(left.slip) || !isSubstitution(right.slip)) continue;
      if (!text::equalIgnoringCase(left.meant, session_.keys[*right.key].text)) continue;
      if (!text::equalIgnoringCase(right.meant, session_.keys[*left.key].text)) continue;
      left.slip = right.slip = Slip::transposition;
    }
  }

  static bool isSubstitution(Slip slip) {
    return slip == Slip::nearby || slip == Slip::substitution;
  }

  const TypedSession& session_;
  const TypingCourse& course_;
  const NearbyKeys& nearbyKeys_;
  const std::vector<std::string_view> prompt_;
  const Symbols promptSymbols_;
  std::vector<std::size_t> promptAfter_;  // per key: where the prompt goes on after it
  std::vector<Ordered> ordered_;
};

}  // namespace

std::string_view nameOf(Slip slip) {
  switch (slip) {
    case Slip::none:
      return "none";
    case Slip::letterCase:
      return "case";
    case Slip::nearby:
      return "nearby";
    case Slip::substitution:
      return "substitution";
    case Slip::transposition:
      return "transposition";
    case Slip::repeat:
      return "repeat";
    case Slip::insertion:
      return "insertion";
    case Slip::omission:
      return "omission";
  }
  return "";
}

std::vector<KeyPair> pairKeys(const TypedSession& session, const TypingCourse& course,
                              const NearbyKeys& nearbyKeys) {
  return Pairing(session, course, nearbyKeys).pair();
}

}  // namespace mirvane
