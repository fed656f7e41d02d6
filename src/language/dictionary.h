#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "language/data_file.h"
#include "language/word_set.h"
#include "language/word_trie.h"
#include "platform/spell_checker.h"

namespace mirvane {

/// English words from a data file. Without the file no word is known and none is offered.
/// Words with other characters than ASCII letters and the apostrophe are unknown.
class Dictionary : public SpellChecker {
 public:
  static constexpr DataFileKind fileKind{{'M', 'V', 'W', 'O', 'R', 'D', 'S', '\0'}, 2};

  /// A dictionary without words.
  Dictionary() = default;
  explicit Dictionary(const std::filesystem::path& path);

  /// Lower case, Capitalised and UPPER CASE of a known word, and the possessive of one that may be
  /// suggested.
  [[nodiscard]] bool isCorrect(std::string_view word) const override;
  [[nodiscard]] bool mayBeSuggested(std::string_view word) const override;
  [[nodiscard]] std::vector<std::string> completions(std::string_view prefix) const override;
  [[nodiscard]] std::vector<std::string> guesses(std::string_view word) const override;

 private:
  [[nodiscard]] bool isKnownInLowerCase(std::string_view word) const;

  std::optional<DataFile> file_;
  WordSet accepted_;
  WordTrie offered_;
  WordTrie offeredBackward_;
};

}  // namespace mirvane
