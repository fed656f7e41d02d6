#include "language/word_set.h"

#define XXH_INLINE_ALL
#include <xxhash.h>

#include <algorithm>
#include <bit>
#include <stdexcept>

namespace mirvane {

namespace {

// A slot is 0 when empty, else the text offset in the low bits and a tag from the hash above them.
constexpr unsigned offsetBits = 21;
constexpr std::uint32_t offsetMask = (1U << offsetBits) - 1;

std::uint64_t hashOf(std::string_view word) {
  return XXH3_64bits(word.data(), word.size());
}

std::uint32_t tagOf(std::uint64_t hash) {
  return static_cast<std::uint32_t>(hash >> (32 + offsetBits)) << offsetBits;
}

}  // namespace

std::optional<WordSet> WordSet::read(PayloadReader& payload) {
  const auto slots = payload.next<std::uint32_t>();
  const auto text = payload.next<char>();
  if (!slots || !text || !std::has_single_bit(slots->size())) return std::nullopt;
  // A search for an unknown word ends at an empty slot.
  if (std::ranges::find(*slots, 0U) == slots->end()) return std::nullopt;
  WordSet set;
  set.slots_ = *slots;
  set.text_ = *text;
  return set;
}

std::optional<std::size_t> WordSet::slotOf(std::string_view word) const {
  if (slots_.empty() || word.empty() || word.size() > longestWord) return std::nullopt;
  const std::uint64_t hash = hashOf(word);
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t i = hash & mask; slots_[i] != 0; i = (i + 1) & mask) {
    if (holds(slots_[i], hash, word)) return i;
  }
  return std::nullopt;
}

bool WordSet::holds(std::uint32_t slot, std::uint64_t hash, std::string_view word) const {
  if ((slot & ~offsetMask) != tagOf(hash)) return false;
  const std::size_t offset = slot & offsetMask;
  if (offset + 1 + word.size() > text_.size()) return false;
  const char* stored = text_.data() + offset;
  return static_cast<std::size_t>(*stored) == word.size() &&
         std::string_view(stored + 1, word.size()) == word;
}

WordSetParts layOutWordSet(std::span<const std::string> words) {
  WordSetParts parts;
  parts.slots.resize(std::bit_ceil(words.size() * 4 / 3 + 1));
  parts.text.assign(1, '\0');  // so that no offset is 0
  const std::size_t mask = parts.slots.size() - 1;
  for (const std::string& word : words) {
    if (word.empty() || word.size() > WordSet::longestWord || parts.text.size() > offsetMask) {
      throw std::length_error("word set: " + word);
    }
    const std::uint64_t hash = hashOf(word);
    std::size_t i = hash & mask;
    while (parts.slots[i] != 0) i = (i + 1) & mask;
    parts.slotOfWord.push_back(i);
    parts.slots[i] = tagOf(hash) | static_cast<std::uint32_t>(parts.text.size());
    parts.text.push_back(static_cast<char>(word.size()));
    parts.text += word;
  }
  return parts;
}

}  // namespace mirvane
