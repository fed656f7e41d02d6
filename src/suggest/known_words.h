#pragma once

#include <string_view>

#include "model/user_settings.h"
#include "platform/spell_checker.h"

namespace mirvane {

/// Which words count as words: those of the dictionary and those of the participant's allow list.
class KnownWords {
 public:
  KnownWords(const SpellChecker& spellChecker, const UserSettings& settings)
      : spellChecker_(spellChecker), settings_(settings) {}

  /// The dictionary alone.
  [[nodiscard]] bool isSpelledCorrectly(std::string_view word) const {
    return !word.empty() && spellChecker_.isCorrect(word);
  }

  /// The dictionary or, letter case aside, the allow list.
  [[nodiscard]] bool isKnownWord(std::string_view word) const {
    return isSpelledCorrectly(word) || settings_.isAllowListed(word);
  }

  [[nodiscard]] bool isAllowListed(std::string_view word) const {
    return settings_.isAllowListed(word);
  }

 private:
  const SpellChecker& spellChecker_;
  const UserSettings& settings_;
};

}  // namespace mirvane
