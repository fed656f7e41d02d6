#include "language/ranked_words.h"

#include <algorithm>
#include <tuple>

namespace mirvane {

std::optional<RankedWords> RankedWords::read(PayloadReader& payload) {
  const auto counts = payload.next<std::uint32_t>();
  const auto letters = payload.next<WordTrie::LetterSet>();
  const auto frequencies = payload.next<WordTrie::Frequency>();
  const auto text = payload.next<char>();
  if (!counts || !letters || !frequencies || !text) return std::nullopt;
  RankedWords words;
  std::size_t first = 0;
  std::size_t firstLetter = 0;
  for (std::size_t length = 0; length < counts->size(); ++length) {
    const std::size_t count = (*counts)[length];
    if (count == 0) continue;
    if (first + count > letters->size() || first + count > frequencies->size() ||
        firstLetter + count * length > text->size()) {
      return std::nullopt;
    }
    words.groups_.push_back({length, letters->subspan(first, count),
                             frequencies->subspan(first, count),
                             text->subspan(firstLetter, count * length)});
    first += count;
    firstLetter += count * length;
  }
  return words;
}

RankedWordsParts layOutRankedWords(
    std::span<const std::pair<std::string, WordTrie::Frequency>> words) {
  std::vector<std::pair<std::string, WordTrie::Frequency>> sorted(words.begin(), words.end());
  std::ranges::sort(sorted, {}, [](const auto& entry) {
    return std::tuple(entry.first.size(), -int{entry.second}, entry.first);
  });
  RankedWordsParts parts;
  for (const auto& [word, frequency] : sorted) {
    parts.counts.resize(std::max(parts.counts.size(), word.size() + 1));
    ++parts.counts[word.size()];
    parts.letters.push_back(WordTrie::letterSetOf(word));
    parts.frequencies.push_back(frequency);
    parts.text += word;
  }
  return parts;
}

}  // namespace mirvane
