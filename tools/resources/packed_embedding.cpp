#include "packed_embedding.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "language/mapped_word_embedding.h"
#include "payload_writer.h"

namespace mirvane {

namespace {

struct Vectors {
  std::vector<std::string> words;
  std::vector<float> norms;
  std::vector<std::int8_t> values;

  void add(const std::string& line) {
    std::istringstream fields(line);
    std::string word;
    fields >> word;
    double squares = 0;
    for (int value = 0; fields >> value; squares += value * value) {
      if (value < -127 || value > 127) throw std::runtime_error("too large a number: " + line);
      values.push_back(static_cast<std::int8_t>(value));
    }
    words.push_back(word);
    norms.push_back(static_cast<float>(std::sqrt(squares)));
    if (squares == 0 || values.size() % words.size() != 0) {
      throw std::runtime_error("not a vector like the others: " + line);
    }
  }
};

}  // namespace

std::string packedEmbedding(std::istream& lines) {
  Vectors vectors;
  for (std::string line; std::getline(lines, line);) vectors.add(line);
  if (vectors.words.size() > std::numeric_limits<std::uint16_t>::max()) {
    throw std::runtime_error("more vectors than the file can number");
  }
  const WordSetParts set = layOutWordSet(vectors.words);
  std::vector<std::uint16_t> rowOfSlot(set.slots.size());
  for (std::size_t row = 0; row < set.slotOfWord.size(); ++row) {
    rowOfSlot[set.slotOfWord[row]] = static_cast<std::uint16_t>(row);
  }
  PayloadWriter payload;
  payload.addWordSet(set);
  payload.add(std::span<const std::uint16_t>(rowOfSlot));
  payload.add(std::span<const float>(vectors.norms));
  payload.add(std::span<const std::int8_t>(vectors.values));
  return dataFileBytes(MappedWordEmbedding::fileKind, payload.bytes());
}

}  // namespace mirvane
