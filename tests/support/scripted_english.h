#pragma once

#include <map>
#include <string>

#include "platform/simulated/scripted_lexical_tagger.h"
#include "platform/simulated/scripted_spell_checker.h"
#include "platform/simulated/scripted_word_embedding.h"
#include "suggest/suggestion_engine.h"

namespace mirvane {

/// What an English of a few words knows.
struct EnglishScript {
  simulated::ScriptedSpellChecker::Script words = {};
  simulated::ScriptedWordEmbedding::Distances distances = {};
  simulated::ScriptedLexicalTagger::Tags tags = {};
  std::map<std::string, double> unigrams = {};
  std::map<std::string, double> bigrams = {};
};

/// An English in which "helo" is "hello" by a missed letter, "helllo" by a repeated key, "teh" is
/// "the" by a swap (no estimate), and "hekp" is only perhaps "help".
[[nodiscard]] EnglishScript everydayScript();

/// The services of such an English.
class ScriptedEnglish {
 public:
  explicit ScriptedEnglish(const EnglishScript& script);

  [[nodiscard]] LanguageServices services() const {
    return {spellChecker_, &embedding_, tagger_, vocabulary_};
  }

 private:
  simulated::ScriptedSpellChecker spellChecker_;
  simulated::ScriptedWordEmbedding embedding_;
  simulated::ScriptedLexicalTagger tagger_;
  ContextScore::Vocabulary vocabulary_;
};

}  // namespace mirvane
