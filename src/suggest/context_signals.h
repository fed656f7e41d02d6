#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/lexical_tagger.h"

namespace mirvane {

/// What the text around a word tells about it.
struct ContextSignals {
  std::optional<std::string> prevWord;        ///< as written
  std::optional<std::string> nextWord;        ///< as written
  std::vector<std::string> surroundingWords;  ///< lower-cased, in text order
  std::optional<LexicalClass> prevPOS;        ///< part of speech of `prevWord`
};

/// The words of a text, in order and as written: runs of letters and apostrophes (U+0027).
[[nodiscard]] std::vector<std::string_view> contextWords(std::string_view text);

/// Gathers the signals for the word that ends at the caret. The caret is an offset in UTF-16
/// units, clamped to the text; `span` is how many words count on each side.
[[nodiscard]] ContextSignals extractContextSignals(std::string_view text, std::int64_t caret,
                                                   std::size_t span, const LexicalTagger& tagger);

}  // namespace mirvane
