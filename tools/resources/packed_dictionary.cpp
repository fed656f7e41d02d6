#include "packed_dictionary.h"

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

}  // namespace

std::string packedDictionary(std::istream& lines) {
  std::vector<std::string> accepted;
  std::vector<std::pair<std::string, WordTrie::Frequency>> offered;
  for (const auto& [word, frequency] : readFrequencies(lines)) {
    accepted.push_back(word);
    if (frequency > 0) offered.emplace_back(word, frequency);
  }
  const WordSetParts set = layOutWordSet(accepted);
  PayloadWriter payload;
  payload.add(std::span(set.slots));
  payload.add(std::span(set.text.data(), set.text.size()));
  const std::vector<WordTrie::Node> nodes = layOutWordTrie(offered);
  payload.add(std::span(nodes));
  return dataFileBytes(Dictionary::fileKind, payload.bytes());
}

}  // namespace mirvane
