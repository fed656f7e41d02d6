#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mirvane {

/// English words. All questions are about exactly the text given, in any letter case.
class SpellChecker {
 public:
  SpellChecker() = default;
  SpellChecker(const SpellChecker&) = delete;
  SpellChecker& operator=(const SpellChecker&) = delete;
  virtual ~SpellChecker() = default;

  /// Asked thousands of times a key: must not allocate.
  [[nodiscard]] virtual bool isCorrect(std::string_view word) const = 0;

  /// Whether a correct word in lower case may be suggested; the others are accepted when typed.
  [[nodiscard]] virtual bool mayBeSuggested(std::string_view /*word*/) const { return true; }

  /// Words that begin with `prefix`, best first; a bounded number.
  [[nodiscard]] virtual std::vector<std::string> completions(std::string_view prefix) const = 0;

  /// Words that may have been meant by `word`, best first, in its case pattern (`Teh` gives
  /// `The`, `TEH` gives `THE`). Few where the answer is sure, more where it is not.
  [[nodiscard]] virtual std::vector<std::string> guesses(std::string_view word) const = 0;
};

}  // namespace mirvane
