#include "support/scripted_english.h"

namespace mirvane {
namespace {

VocabularyTable tableOf(const std::map<std::string, double>& weights) {
  VocabularyTable table;
  for (const auto& [key, weight] : weights) table.insert(key, weight);
  return table;
}

}  // namespace

EnglishScript everydayScript() {
  EnglishScript script;
  script.words.known = {"hello", "help", "held", "halo", "the", "ten", "then", "keep", "say"};
  script.words.guesses = {{"helo", {"hello", "help", "held", "halo"}},
                          {"teh", {"the", "ten"}},
                          {"hekp", {"help", "keep"}},
                          {"the", {"then"}}};
  return script;
}

ScriptedEnglish::ScriptedEnglish(const EnglishScript& script)
    : spellChecker_(script.words),
      embedding_(script.distances),
      tagger_(script.tags),
      vocabulary_{tableOf(script.unigrams), tableOf(script.bigrams)} {}

}  // namespace mirvane
