#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/lexical_tagger.h"

namespace mirvane::simulated {

/// Tags from a table, by the exact bytes of the word.
class ScriptedLexicalTagger : public LexicalTagger {
 public:
  using Tags = std::map<std::string, LexicalClass, std::less<>>;

  explicit ScriptedLexicalTagger(Tags tags = {}) : tags_(std::move(tags)) {}

  [[nodiscard]] std::optional<LexicalClass> tag(std::string_view word) const override;

 private:
  Tags tags_;
};

}  // namespace mirvane::simulated
