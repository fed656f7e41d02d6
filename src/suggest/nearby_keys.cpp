#include "suggest/nearby_keys.h"

#include <algorithm>
#include <utility>

#include "text/canonical.h"
#include "text/characters.h"
#include "text/letter_case.h"
#include "text/scalars.h"

namespace mirvane {
namespace {

/// Neighbours on a US QWERTY keyboard, in the order in which they are tried.
constexpr std::array<std::pair<std::string_view, std::string_view>, 26> builtInLayout{{
    {"q", "wa"},     {"w", "qeas"},   {"e", "wrsd"},   {"r", "etdf"},   {"t", "ryfg"},
    {"y", "tugh"},   {"u", "yihj"},   {"i", "uojk"},   {"o", "ipkl"},   {"p", "ol"},
    {"a", "qwsz"},   {"s", "awedzx"}, {"d", "serfxc"}, {"f", "drtgcv"}, {"g", "ftyhvb"},
    {"h", "gyujbn"}, {"j", "huiknm"}, {"k", "jiolm"},  {"l", "kop"},    {"z", "asx"},
    {"x", "zsdc"},   {"c", "xdfv"},   {"v", "cfgb"},   {"b", "vghn"},   {"n", "bhjm"},
    {"m", "njk"},
}};

std::vector<std::string> byFallingProbability(NearbyKeyRow row) {
  std::stable_sort(row.begin(), row.end(),
                   [](const auto& a, const auto& b) { return a.second > b.second; });
  std::vector<std::string> keys;
  keys.reserve(row.size());
  for (auto& entry : row) keys.push_back(std::move(entry.first));
  return keys;
}

std::vector<std::string> singleLetters(std::string_view letters) {
  std::vector<std::string> keys;
  for (const char letter : letters) keys.emplace_back(1, letter);
  return keys;
}

bool isAsciiKey(std::string_view key) {
  return key.size() == 1 && static_cast<unsigned char>(key[0]) < 128;
}

}  // namespace

NearbyKeys::NearbyKeys(const TypingConfig& config) : table_(config.nearbyKeyProbabilities) {
  for (const auto& [key, row] : table_) {
    neighbors_[text::canonicalForm(key)] = byFallingProbability(row);
  }
  if (table_.empty()) {
    for (const auto& [key, letters] : builtInLayout) {
      neighbors_[std::string(key)] = singleLetters(letters);
    }
  }
  for (const auto& [key, keys] : neighbors_) {
    if (isAsciiKey(key)) asciiNeighbors_[static_cast<unsigned char>(key[0])] = &keys;
  }
}

const NearbyKeyRow* NearbyKeys::row(std::string_view typed) const {
  const auto found = std::find_if(table_.begin(), table_.end(), [&](const auto& entry) {
    return text::sameCharacter(entry.first, typed);
  });
  return found == table_.end() ? nullptr : &found->second;
}

double NearbyKeys::nearbyKeyProbability(std::string_view typed, std::string_view meant) const {
  const NearbyKeyRow* candidates = row(text::lowercased(typed));
  if (candidates == nullptr) return 0.0;
  const std::string lowerMeant = text::lowercased(meant);
  for (const auto& [key, probability] : *candidates) {
    if (text::sameCharacter(key, lowerMeant)) return probability;
  }
  return 0.0;
}

const std::vector<std::string>& NearbyKeys::nearbyKeyNeighbors(std::string_view key) const {
  static const std::vector<std::string> none;
  if (isAsciiKey(key)) {
    const auto* keys = asciiNeighbors_[static_cast<unsigned char>(key[0])];
    return keys == nullptr ? none : *keys;
  }
  const auto found = neighbors_.find(text::canonicalForm(key));
  return found == neighbors_.end() ? none : found->second;
}

}  // namespace mirvane
