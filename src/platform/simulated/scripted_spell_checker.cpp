#include "platform/simulated/scripted_spell_checker.h"

namespace mirvane::simulated {
namespace {

std::vector<std::string> lookUp(const ScriptedSpellChecker::WordLists& lists,
                                std::string_view word) {
  const auto found = lists.find(word);
  return found == lists.end() ? std::vector<std::string>{} : found->second;
}

}  // namespace

bool ScriptedSpellChecker::isCorrect(std::string_view word) const {
  return script_.known.contains(word);
}

std::vector<std::string> ScriptedSpellChecker::completions(std::string_view prefix) const {
  return lookUp(script_.completions, prefix);
}

std::vector<std::string> ScriptedSpellChecker::guesses(std::string_view word) const {
  return lookUp(script_.guesses, word);
}

}  // namespace mirvane::simulated
