#pragma once

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/typing_config.h"

namespace mirvane {

/// The neighbourhood of the keys, built once from the typing parameters.
class NearbyKeys {
 public:
  /// Keeps a reference to the table of `config`.
  explicit NearbyKeys(const TypingConfig& config);
  NearbyKeys(const NearbyKeys&) = delete;
  NearbyKeys& operator=(const NearbyKeys&) = delete;

  /// How likely the typist meant `meant` when `typed` arrived; 0 for a pair the table does not
  /// hold. Both are single characters and are lower-cased first.
  [[nodiscard]] double nearbyKeyProbability(std::string_view typed, std::string_view meant) const;

  /// The keys to try in place of a lower-case character, in order: the table's row by falling
  /// probability or, when the whole table is empty, the built-in layout. Empty for a character
  /// without neighbours.
  [[nodiscard]] const std::vector<std::string>& nearbyKeyNeighbors(std::string_view key) const;

 private:
  [[nodiscard]] const NearbyKeyRow* row(std::string_view typed) const;

  const NearbyKeyTable& table_;
  std::unordered_map<std::string, std::vector<std::string>> neighbors_;
  /// The neighbours of the ASCII keys again, for the many look-ups of one key press.
  std::array<const std::vector<std::string>*, 128> asciiNeighbors_{};
};

}  // namespace mirvane
