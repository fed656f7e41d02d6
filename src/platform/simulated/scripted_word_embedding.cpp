#include "platform/simulated/scripted_word_embedding.h"

namespace mirvane::simulated {

ScriptedWordEmbedding::ScriptedWordEmbedding(const Distances& byPair) {
  for (const auto& [pair, distance] : byPair) {
    const auto bar = pair.find('|');
    if (bar == std::string::npos) continue;
    set(std::string_view(pair).substr(0, bar), std::string_view(pair).substr(bar + 1), distance);
  }
}

void ScriptedWordEmbedding::set(std::string_view a, std::string_view b, double distance) {
  distances_[std::string(a)].insert_or_assign(std::string(b), distance);
  distances_[std::string(b)].insert_or_assign(std::string(a), distance);
}

double ScriptedWordEmbedding::distance(std::string_view a, std::string_view b) const {
  constexpr double unknown = 2;
  const auto ofA = distances_.find(a);
  if (ofA == distances_.end()) return unknown;
  const auto found = ofA->second.find(b);
  return found == ofA->second.end() ? unknown : found->second;
}

}  // namespace mirvane::simulated
