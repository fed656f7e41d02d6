#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analyse/typed_session.h"

namespace mirvane {

/// The text of a field as keys and corrections change it at its end, and for every character the
/// keys it goes back to. A corrected word keeps the keys of the word before, letter by letter.
class TypedField {
 public:
  /// Numbers of keys, in the order typed.
  using KeyNumbers = std::vector<std::size_t>;

  /// The keys that a key press erased. `number` is the key's own.
  KeyNumbers press(const TypedKey& key, std::size_t number);

  /// Puts `corrected` in the place of `original`, which ends the text or has nothing but a few
  /// characters after it that belong to no word. Answers the keys of the word; absent when the text
  /// does not end so, and then it stays.
  std::optional<KeyNumbers> correct(std::string_view original, std::string_view corrected);

  [[nodiscard]] std::size_t size() const { return cells_.size(); }
  [[nodiscard]] std::string text() const;
  /// The keys behind the text.
  [[nodiscard]] KeyNumbers keys() const;
  /// The key behind the text's end.
  [[nodiscard]] std::optional<std::size_t> lastKey() const;

 private:
  struct Cell {
    std::string character;
    KeyNumbers keys;
  };

  KeyNumbers erase();
  KeyNumbers eraseWord();
  [[nodiscard]] std::optional<std::size_t> findAtEnd(
      const std::vector<std::string_view>& word) const;

  std::vector<Cell> cells_;
};

}  // namespace mirvane
