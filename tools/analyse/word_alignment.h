#pragma once

#include <cstddef>
#include <vector>

#include "session/study_words.h"

namespace mirvane {

/// Words of the prompt and the typed words that stand for them, by position. One of the counts is 0
/// for a word left out or too many, 2 where a space is missing or too many.
struct WordPair {
  std::size_t firstMeant = 0;
  std::size_t meantCount = 0;
  std::size_t firstTyped = 0;
  std::size_t typedCount = 0;

  bool operator==(const WordPair&) const = default;
};

enum class Prompt { whole, beginning };

/// Pairs the words of two texts, in order, so that the sum of the minimum string distances of
/// paired words and of the lengths of the others is least; a space missing or too many costs 1.
/// Among equal sums the pairing with most equal words wins. Letter case does not count. With
/// `Prompt::beginning` the prompt may go on after the last word typed. Throws a
/// `std::runtime_error` for texts that are too long to compare.
[[nodiscard]] std::vector<WordPair> alignWords(const std::vector<StudyWord>& meant,
                                               const std::vector<StudyWord>& typed,
                                               Prompt prompt = Prompt::whole);

}  // namespace mirvane
