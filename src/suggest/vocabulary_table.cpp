#include "suggest/vocabulary_table.h"

#include <simdjson.h>

#include <algorithm>
#include <bit>
#include <functional>
#include <limits>
#include <utility>

#include "text/canonical.h"
#include "text/scalars.h"

namespace mirvane {
namespace {

constexpr std::size_t longestKey = std::numeric_limits<std::uint16_t>::max();

std::size_t hashOf(std::string_view key) {
  return std::hash<std::string_view>{}(key);
}

/// The upper bits: the lower ones choose the slot.
std::uint16_t tagOf(std::size_t hash) {
  return static_cast<std::uint16_t>(hash >> 48);
}

/// Reads field by field: a tree of the whole text would take more memory than all the rest.
VocabularyTable parseVocabularyTable(std::string json) {
  constexpr std::size_t typicalFieldLength = 20;
  json.reserve(json.size() + simdjson::SIMDJSON_PADDING);
  simdjson::ondemand::parser parser;
  simdjson::ondemand::document document;
  simdjson::ondemand::object fields;
  if (parser.iterate(json).get(document) != simdjson::SUCCESS) return {};
  if (document.get_object().get(fields) != simdjson::SUCCESS) return {};
  VocabularyTable table;
  table.reserve(json.size() / typicalFieldLength);
  for (auto field : fields) {
    std::string_view key;
    double weight = 0;
    if (field.unescaped_key().get(key) != simdjson::SUCCESS) return {};
    if (field.value().get_double().get(weight) != simdjson::SUCCESS) return {};
    table.insert(key, weight);
  }
  const bool isAtEnd = document.current_location().error() == simdjson::OUT_OF_BOUNDS;
  return isAtEnd ? std::move(table) : VocabularyTable{};
}

}  // namespace

void VocabularyTable::reserve(std::size_t entries) {
  constexpr std::size_t typicalKeyLength = 12;
  entries = std::max(entries, size_);
  keys_.reserve(entries * typicalKeyLength);
  grow(std::bit_ceil(entries * 3 / 2 + 2));
}

void VocabularyTable::insert(std::string_view key, double weight) {
  const std::string canonical = text::isAscii(key) ? std::string() : text::canonicalForm(key);
  if (!canonical.empty()) key = canonical;
  if (key.empty() || key.size() > longestKey) return;
  if (slots_.size() < (size_ + 1) * 3 / 2) grow(std::bit_ceil((size_ + 1) * 3));
  const std::size_t hash = hashOf(key);
  Slot& slot = slots_[slotOf(key, hash)];
  if (slot.keyLength == 0) {
    slot.keyStart = static_cast<std::uint32_t>(keys_.size());
    slot.keyLength = static_cast<std::uint16_t>(key.size());
    slot.tag = tagOf(hash);
    keys_ += key;
    ++size_;
  }
  slot.weight = weight;
}

double VocabularyTable::weight(std::string_view key) const {
  if (slots_.empty()) return 0;
  const std::string canonical = text::isAscii(key) ? std::string() : text::canonicalForm(key);
  if (!canonical.empty()) key = canonical;
  return slots_[slotOf(key, hashOf(key))].weight;
}

/// The slot that holds the key, or the free one where it belongs.
std::size_t VocabularyTable::slotOf(std::string_view key, std::size_t hash) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t index = hash & mask;
  while (slots_[index].keyLength != 0 &&
         (slots_[index].tag != tagOf(hash) || keyOf(slots_[index]) != key)) {
    index = (index + 1) & mask;
  }
  return index;
}

std::string_view VocabularyTable::keyOf(const Slot& slot) const {
  return std::string_view(keys_).substr(slot.keyStart, slot.keyLength);
}

void VocabularyTable::grow(std::size_t capacity) {
  std::vector<Slot> old(capacity);
  old.swap(slots_);
  for (const Slot& slot : old) {
    if (slot.keyLength == 0) continue;
    const auto key = keyOf(slot);
    slots_[slotOf(key, hashOf(key))] = slot;
  }
}

VocabularyTable loadVocabularyTable(const Bundle& bundle, std::string_view resourceName) {
  auto path = bundle.pathForResource(resourceName, "json", "Vocabulary");
  if (!path) path = bundle.pathForResource(resourceName, "json");
  if (!path) return {};
  auto json = bundle.contents(*path);
  return json ? parseVocabularyTable(*std::move(json)) : VocabularyTable{};
}

}  // namespace mirvane
