#pragma once

#include <optional>
#include <string_view>

namespace mirvane {

enum class LexicalClass { noun, verb, adjective, pronoun, determiner, preposition, other };

/// Part-of-speech tags of single English words.
class LexicalTagger {
 public:
  LexicalTagger() = default;
  LexicalTagger(const LexicalTagger&) = delete;
  LexicalTagger& operator=(const LexicalTagger&) = delete;
  virtual ~LexicalTagger() = default;

  /// The most usual lexical class of a word, in any letter case; absent for an unknown word.
  [[nodiscard]] virtual std::optional<LexicalClass> tag(std::string_view word) const = 0;
};

}  // namespace mirvane
