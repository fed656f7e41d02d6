#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/bundle.h"

namespace mirvane {

/// A read-only map from texts to weights: one block of key bytes and one open-addressing index, so
/// that hundreds of thousands of entries load fast and a look-up allocates nothing.
class VocabularyTable {
 public:
  /// Makes room for about so many entries.
  void reserve(std::size_t entries);

  /// Adds or replaces an entry. Canonically equivalent keys are one. Keys that are empty or longer
  /// than 65,535 bytes, which no word is, are left out.
  void insert(std::string_view key, double weight);

  /// The weight of a key, 0 when it is missing.
  [[nodiscard]] double weight(std::string_view key) const;

  [[nodiscard]] std::size_t size() const { return size_; }

 private:
  struct Slot {
    std::uint32_t keyStart = 0;
    std::uint16_t keyLength = 0;  ///< 0 marks a free slot
    /// Part of the key's hash: most keys that are not the one looked for need no comparison.
    std::uint16_t tag = 0;
    double weight = 0;
  };

  [[nodiscard]] std::size_t slotOf(std::string_view key, std::size_t hash) const;
  [[nodiscard]] std::string_view keyOf(const Slot& slot) const;
  void grow(std::size_t capacity);

  std::string keys_;
  std::vector<Slot> slots_;
  std::size_t size_ = 0;
};

/// Reads the resource "`resourceName`.json" from the folder "Vocabulary" or, when it is not there,
/// from the top level. Missing, unreadable or anything but an object of numbers: an empty table.
[[nodiscard]] VocabularyTable loadVocabularyTable(const Bundle& bundle,
                                                  std::string_view resourceName);

}  // namespace mirvane
