#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analyse/typed_field.h"
#include "analyse/typed_session.h"
#include "analyse/word_alignment.h"
#include "session/study_words.h"

namespace mirvane {

/// A word of the prompt, or two that were typed as one.
struct MeantWord {
  std::size_t position = 0;     ///< of the first, from 0
  std::string asWritten = {};   ///< with a space between two
  std::string normalized = {};  ///< without it

  /// Letter case and punctuation aside.
  [[nodiscard]] bool isRight(std::string_view word) const;
};

/// How many words of the prompt stand right in a text, letter case aside.
[[nodiscard]] std::size_t countRightWords(const std::vector<StudyWord>& prompt,
                                          std::string_view text);

/// Finds, by aligning, which words of a prompt the words typed by some keys stand for.
class PromptWords {
 public:
  /// `typed` are the keys of a text, `extent` says whether it was to be the whole prompt.
  PromptWords(const std::vector<StudyWord>& prompt, const std::vector<TypedKey>& keys,
              const TypedField::KeyNumbers& typed, Prompt extent);

  /// What the typed word with these keys was meant to be. Absent when the prompt has no word for it
  /// or the keys typed no word.
  [[nodiscard]] std::optional<MeantWord> meantBy(const TypedField::KeyNumbers& word) const;

 private:
  struct Typed {
    TypedField::KeyNumbers keys;
    std::optional<MeantWord> meant;
  };

  std::vector<Typed> words_;  // in the order of their keys
};

}  // namespace mirvane
