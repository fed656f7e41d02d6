#include "packed_dictionary.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

#include "language/dictionary.h"
#include "payload_writer.h"

namespace mirvane {

namespace {

// Sorted by word, as the trie wants them.
using Frequencies = std::map<std::string, WordTrie::Frequency>;

Frequencies readFrequencies(std::istream& lines) {
  Frequencies frequencies;
  std::string word;
  int frequency = 0;
  while (lines >> word) {
    if (!(lines >> frequency) || frequency < 0 || frequency > 255) {
      throw std::runtime_error("no frequency from 0 to 255 behind: " + word);
    }
    frequencies[word] = static_cast<WordTrie::Frequency>(frequency);
  }
  return frequencies;
}

using FrequentWords = std::vector<std::pair<std::string, WordTrie::Frequency>>;

FrequentWords spelledBackward(FrequentWords words) {
  for (auto& [word, frequency] : words) std::ranges::reverse(word);
  std::ranges::sort(words);
  return words;
}

void addTrie(PayloadWriter& payload, const FrequentWords& words) {
  const WordTrieParts parts = layOutWordTrie(words);
  payload.add(std::span<const WordTrie::Node>(parts.nodes));
  payload.add(std::span<const WordTrie::Frequency>(parts.frequencies));
}

}  // namespace

std::string packedDictionary(std::istream& lines) {
  std::vector<std::string> accepted;
  FrequentWords offered;
  for (const auto& [word, frequency] : readFrequencies(lines)) {
    accepted.push_back(word);
    if (frequency > 0) offered.emplace_back(word, frequency);
  }
  PayloadWriter payload;
  payload.addWordSet(layOutWordSet(accepted));
  addTrie(payload, offered);
  addTrie(payload, spelledBackward(std::move(offered)));
  return dataFileBytes(Dictionary::fileKind, payload.bytes());
}

}  // namespace mirvane
