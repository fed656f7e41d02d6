#include "packed_tags.h"

#include <cstdint>
#include <stdexcept>
#include <vector>

#include "language/word_tagger.h"
#include "payload_writer.h"

namespace mirvane {

std::string packedTags(std::istream& lines) {
  std::vector<std::string> words;
  std::vector<std::uint8_t> classes;
  std::string word;
  int number = 0;
  while (lines >> word) {
    if (!(lines >> number) || number < 0 || number > static_cast<int>(LexicalClass::other)) {
      throw std::runtime_error("no lexical class behind: " + word);
    }
    words.push_back(word);
    classes.push_back(static_cast<std::uint8_t>(number));
  }
  const WordSetParts set = layOutWordSet(words);
  std::vector<std::uint8_t> classOfSlot(set.slots.size());
  for (std::size_t i = 0; i < classes.size(); ++i) classOfSlot[set.slotOfWord[i]] = classes[i];
  PayloadWriter payload;
  payload.addWordSet(set);
  payload.add(std::span<const std::uint8_t>(classOfSlot));
  return dataFileBytes(WordTagger::fileKind, payload.bytes());
}

}  // namespace mirvane
