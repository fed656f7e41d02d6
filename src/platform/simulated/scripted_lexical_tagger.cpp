#include "platform/simulated/scripted_lexical_tagger.h"

namespace mirvane::simulated {

std::optional<LexicalClass> ScriptedLexicalTagger::tag(std::string_view word) const {
  const auto found = tags_.find(word);
  if (found == tags_.end()) return std::nullopt;
  return found->second;
}

}  // namespace mirvane::simulated
