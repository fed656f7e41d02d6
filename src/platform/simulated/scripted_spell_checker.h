#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/spell_checker.h"

namespace mirvane::simulated {

/// Answers from tables, by the exact bytes of the question; a word that is missing gets nothing.
class ScriptedSpellChecker : public SpellChecker {
 public:
  using WordLists = std::map<std::string, std::vector<std::string>, std::less<>>;

  struct Script {
    std::set<std::string, std::less<>> known;
    WordLists guesses;
    WordLists completions;
  };

  explicit ScriptedSpellChecker(Script script = {}) : script_(std::move(script)) {}

  [[nodiscard]] bool isCorrect(std::string_view word) const override;
  [[nodiscard]] std::vector<std::string> completions(std::string_view prefix) const override;
  [[nodiscard]] std::vector<std::string> guesses(std::string_view word) const override;

 private:
  Script script_;
};

}  // namespace mirvane::simulated
