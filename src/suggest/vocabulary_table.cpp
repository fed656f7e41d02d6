#include "suggest/vocabulary_table.h"

#include <simdjson.h>

#include <bit>
#include <functional>

#include "text/canonical.h"
#include "text/scalars.h"

namespace mirvane {
namespace {

VocabularyTable parseVocabularyTable(std::string_view json) {
  simdjson::dom::parser parser;
  simdjson::dom::object entries;
  if (parser.parse(simdjson::padded_string(json)).get(entries) != simdjson::SUCCESS) return {};
  VocabularyTable table;
  table.reserve(entries.size());
  for (const auto [key, value] : entries) {
    if (!value.is_number()) return {};
    table.insert(key, value.get_double().value());
  }
  return table;
}

}  // namespace

void VocabularyTable::reserve(std::size_t entries) {
  constexpr std::size_t typicalKeyLength = 12;
  keys_.reserve(entries * typicalKeyLength);
  grow(std::bit_ceil(entries * 3 / 2 + 2));
}

void VocabularyTable::insert(std::string_view key, double weight) {
  // An empty key can never be asked for: every look-up holds a word.
  if (key.empty()) return;
  const std::string canonical = text::isAscii(key) ? std::string() : text::canonicalForm(key);
  if (!canonical.empty()) key = canonical;
  if (slots_.size() < (size_ + 1) * 3 / 2) grow(std::bit_ceil((size_ + 1) * 3));
  Slot& slot = slots_[slotOf(key)];
  if (slot.keyLength == 0) {
    slot.keyStart = static_cast<std::uint32_t>(keys_.size());
    slot.keyLength = static_cast<std::uint32_t>(key.size());
    keys_ += key;
    ++size_;
  }
  slot.weight = weight;
}

double VocabularyTable::weight(std::string_view key) const {
  if (slots_.empty() || key.empty()) return 0;
  if (!text::isAscii(key)) return slots_[slotOf(text::canonicalForm(key))].weight;
  return slots_[slotOf(key)].weight;
}

/// The slot that holds the key, or the free one where it belongs.
std::size_t VocabularyTable::slotOf(std::string_view key) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t index = std::hash<std::string_view>{}(key)&mask;
  while (slots_[index].keyLength != 0 && keyOf(slots_[index]) != key) index = (index + 1) & mask;
  return index;
}

std::string_view VocabularyTable::keyOf(const Slot& slot) const {
  return std::string_view(keys_).substr(slot.keyStart, slot.keyLength);
}

void VocabularyTable::grow(std::size_t capacity) {
  std::vector<Slot> old(capacity);
  old.swap(slots_);
  for (const Slot& slot : old) {
    if (slot.keyLength != 0) slots_[slotOf(keyOf(slot))] = slot;
  }
}

VocabularyTable loadVocabularyTable(const Bundle& bundle, std::string_view resourceName) {
  auto path = bundle.pathForResource(resourceName, "json", "Vocabulary");
  if (!path) path = bundle.pathForResource(resourceName, "json");
  if (!path) return {};
  const auto json = bundle.contents(*path);
  return json ? parseVocabularyTable(*json) : VocabularyTable{};
}

}  // namespace mirvane
